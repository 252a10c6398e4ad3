#pragma once

#include <QString>

#include <stdexcept>

namespace orlo::registro
{

/// Why a command could not be done, in Italian, for the person at the shell.
class Failure : public std::runtime_error
{
public:
    explicit Failure(const QString& text) : std::runtime_error(text.toStdString()) {}
};

/// The command line itself cannot be followed.
class UsageError : public Failure
{
public:
    using Failure::Failure;
};

}  // namespace orlo::registro
