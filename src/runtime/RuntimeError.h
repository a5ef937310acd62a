// SPDX-License-Identifier: MIT
#pragma once

#include <exception>
#include <initializer_list>
#include <string>
#include <string_view>

namespace tol::runtime {

/// The numbers of run-time errors, as administrators of such databases know them.
enum ErrorNumber : int {
    errInvalidCall = 5,
    errOverflow = 6,
    errSubscript = 9,
    errTypeMismatch = 13,
    errFileNotFound = 53,
    errDiskFull = 61,
    errPermissionDenied = 70,
    errPathAccess = 75,
    errPathNotFound = 76,
    errObjectNotSet = 91,
    errInvalidNull = 94,
    errInvalidArgument = 3001,
    errTableExists = 3010,
    errNotAnIndex = 3015,
    errNoCurrentIndex = 3019,
    errNoCopyBuffer = 3020,
    errNoCurrentRecord = 3021,
    errDuplicateKey = 3022,
    errDatabaseNotFound = 3024,
    errNoDiskSpace = 3026,
    errReadOnly = 3027,
    errNoTransaction = 3034,
    errDiskOrNetwork = 3043,
    errInvalidPath = 3044,
    errFileInUse = 3045,
    errCannotOpen = 3049,
    errNoPermission = 3051,
    errNullInIndex = 3058,
    errTableNotFound = 3078,
    errInvalidName = 3125,
    errInvalidBookmark = 3159,
    errFieldTooSmall = 3163,
    errRecordDeleted = 3167,
    errTooManyFields = 3190,
    errFieldTwice = 3191,
    errDatabaseExists = 3204,
    errTableInUse = 3211,
    errRowLocked = 3218,
    errInvalidOperation = 3219,
    errNotSupported = 3251,
    errFileInUseByOther = 3260,
    errInvalidFieldType = 3259,
    errNoFieldDefined = 3264,
    errItemNotFound = 3265,
    errNoSuchProperty = 3270,
    errFieldInIndex = 3280,
    errPrimaryKeyExists = 3283,
    errIndexExists = 3284,
    errValueRequired = 3314,
    errZeroLength = 3315,
    errUnrecognisedFormat = 3343,
    errObjectExists = 3367,
    errIndexFieldNotFound = 3409,
    errObjectInvalid = 3420,
    errDataConversion = 3421,
};

/// A run-time error: a number, a description for people, and what the storage engine or the
/// operating system said itself, for logs. The only thing that is thrown from one layer to another.
class RuntimeError : public std::exception {
  public:
    RuntimeError(int number, std::string description, std::string engineText = {});

    [[nodiscard]] int number() const { return m_number; }
    [[nodiscard]] const std::string& description() const { return m_description; }
    [[nodiscard]] const std::string& engineText() const { return m_engineText; }
    [[nodiscard]] const char* what() const noexcept override { return m_description.c_str(); }

  private:
    int m_number;
    std::string m_description;
    std::string m_engineText;
};

/// Throws the error with the number's usual description, in which each `{}` takes the next argument
/// (a table's, file's or field's name).
[[noreturn]] void raise(ErrorNumber number, std::initializer_list<std::string_view> arguments = {},
                        std::string engineText = {});
/// The description that raise() would give. A name that is missing, or nothing but blanks, is told as such.
std::string describe(ErrorNumber number, std::initializer_list<std::string_view> arguments = {});

} // namespace tol::runtime
