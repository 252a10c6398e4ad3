#pragma once

#include <stdexcept>
#include <string>

namespace jet
{

/// Numbers of the errors, those of the object interface that programs for these files know.
enum ErrorNumber : int {
    kInvalidArgument = 3001,
    kNoCurrentRecord = 3021,
    kColumnNotFound = 3018,
    kFileNotFound = 3024,
    kTableNotFound = 3011,
    kIndexNotFound = 3015,
    kNoIndexSelected = 3019,
    kDiskError = 3043,
    kUnrecognisedFormat = 3343,
    kDamagedFile = 3049,
    kEncodedFile = 3031,
    kAccessDenied = 3051,
};

/// The only exception of the engine: a number and a text in Italian, UTF-8, for the operator.
class Error : public std::runtime_error
{
public:
    Error(int number, const std::string& text) : std::runtime_error(text), number_(number) {}

    int Number() const noexcept { return number_; }

private:
    int number_;
};

}  // namespace jet
