#pragma once

#include <stdexcept>

namespace orlo::simulator
{

/// What the person asked for on the command line or in a punch file cannot be done; the text says
/// why, in Italian. Never thrown for anything that comes from the line.
class UsageError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

}  // namespace orlo::simulator
