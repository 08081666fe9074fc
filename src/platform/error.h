#pragma once

#include <stdexcept>
#include <string>

namespace vellumark::platform {

// Error numbers of the data engine and the run-time that callers test for or show to the user.
enum ErrorNumber : int {
    kInvalidProcedureCall = 5,
    kOverflow = 6,
    kSubscriptOutOfRange = 9,
    kDivisionByZero = 11,
    kTypeMismatch = 13,
    kBadFileName = 52,
    kFileNotFound = 53,
    kDeviceIOError = 57,
    kDiskFull = 61,
    kInputPastEnd = 62,
    kPermissionDenied = 70,
    kPathAccessError = 75,
    kPathNotFound = 76,
    kNoCurrentRecord = 3021,
    kDuplicateKey = 3022,
    kFileCannotBeFound = 3024,
    kNotEnoughSpaceOnDisk = 3026,
    kReadOnlyDatabase = 3027,
    kNotAValidPassword = 3031,
    kCannotOpenFile = 3051,
    kNoSuchTable = 3078,
    kNoSuchParameter = 3061,
    kSyntaxError = 3075,
    kQueryFailed = 3146,
    kRowIsGone = 3167,
    kRowHasChanged = 3197,
    kRelatedRecordRequired = 3201,
    kNullNotAllowed = 3314,
    kLocked = 3218,
    kRowNotAlone = 3229,
    kNoSuchItem = 3265,
    kUnrecognizedFormat = 3343,
    kConversionError = 3421,
    kProviderNotFound = 3706,
};

// The one exception type of the program: a number as the data engine's and a text for people.
class Error : public std::runtime_error {
 public:
    Error(int number, const std::string& description) : std::runtime_error(description), number_(number) {}

    int Number() const { return number_; }
    std::string Description() const { return what(); }

    // "Error: ", the number, a blank and the description: the line that most messages end with.
    std::string Line() const { return "Error: " + std::to_string(number_) + " " + what(); }

 private:
    int number_;
};

// Thrown after a message that ends the program has been shown.
struct ProgramEnd {};

}  // namespace vellumark::platform
