#pragma once

#include <stdexcept>
#include <string>

namespace jet
{

/// Numbers of the errors, those of the object interface that programs for these files know.
enum ErrorNumber : int {
    kInvalidArgument = 3001,
    kTableExists = 3010,
    kTableNotFound = 3011,
    kIndexNotFound = 3015,
    kColumnNotFound = 3018,
    kNoIndexSelected = 3019,
    kNoEditBegun = 3020,  ///< SetField or Update without Edit or AddNew
    kNoCurrentRecord = 3021,
    kDuplicateKey = 3022,
    kFileNotFound = 3024,
    kDiskFull = 3026,
    kReadOnly = 3027,
    kEncodedFile = 3031,
    kTransaction = 3034,  ///< commit or rollback without begin, or a second begin
    kDiskError = 3043,
    kInUse = 3045,
    kRecordTooLong = 3047,
    kDamagedFile = 3049,
    kCannotLock = 3050,  ///< the file system keeps no locks
    kAccessDenied = 3051,
    kNullInKey = 3058,
    kSyntaxError = 3075,
    kInvalidName = 3125,
    kFieldTooSmall = 3163,
    kTooManyColumns = 3190,
    kColumnExists = 3191,
    kFileExists = 3204,
    kNotSupported = 3251,
    kInvalidColumn = 3259,
    kPrimaryExists = 3283,
    kIndexExists = 3284,
    kFieldOverflow = 3349,
    kUnrecognisedFormat = 3343,
    kWrongType = 3421,
    kInvalidIndex = 3409,
    kTooManyIndexes = 3626,
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
