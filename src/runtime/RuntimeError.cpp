// SPDX-License-Identifier: MIT
#include "runtime/RuntimeError.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tol::runtime {
namespace {

struct Description {
    ErrorNumber number;
    std::string_view text;
};

// Sorted by number. A `{}` stands for the name that the error is about.
constexpr Description descriptions[] = {
    {errInvalidCall, "Invalid procedure call or argument"},
    {errOverflow, "Overflow"},
    {errSubscript, "Subscript out of range"},
    {errTypeMismatch, "Type mismatch"},
    {errFileNotFound, "File not found"},
    {errDiskFull, "Disk full"},
    {errPermissionDenied, "Permission denied"},
    {errPathAccess, "Path/File access error"},
    {errPathNotFound, "Path not found"},
    {errObjectNotSet, "Object variable not set"},
    {errInvalidNull, "Invalid use of Null"},
    {errInvalidArgument, "Invalid argument."},
    {errTableExists, "Table '{}' already exists."},
    {errNotAnIndex, "'{}' is not an index in this table."},
    {errNoCurrentIndex, "Operation invalid without a current index."},
    {errNoCopyBuffer, "Update or CancelUpdate without AddNew or Edit."},
    {errNoCurrentRecord, "No current record."},
    {errDuplicateKey,
     "The change was not made: it would create duplicate values in the index or primary key '{}'."},
    {errDatabaseNotFound, "Could not find file '{}'."},
    {errNoDiskSpace, "Not enough space on disk for '{}'."},
    {errReadOnly, "Cannot update. Database or object '{}' is read-only."},
    {errNoTransaction, "Commit or Rollback without BeginTrans."},
    {errDiskOrNetwork, "Disk or network error in '{}'."},
    {errInvalidPath, "'{}' is not a valid path."},
    {errFileInUse, "Could not use '{}'; file already in use."},
    {errCannotOpen, "Cannot open database '{}'. The file may be damaged."},
    {errNoPermission,
     "Cannot open or write to the file '{}': no permission, or opened exclusively by another user."},
    {errNullInIndex, "Index or primary key '{}' cannot contain a Null value."},
    {errTableNotFound, "Cannot find the table '{}'."},
    {errInvalidName, "'{}' is not a valid name."},
    {errInvalidBookmark, "Not a valid bookmark."},
    {errFieldTooSmall, "The field '{}' is too small to accept the amount of data."},
    {errRecordDeleted, "Record is deleted."},
    {errTooManyFields, "Too many fields defined."},
    {errFieldTwice, "Cannot define field '{}' more than once."},
    {errDatabaseExists, "Database '{}' already exists."},
    {errTableInUse, "Could not lock table '{}'; it is in use by another user or process."},
    {errRowLocked, "Could not update '{}'; currently locked."},
    {errInvalidOperation, "Invalid operation."},
    {errNotSupported, "Operation is not supported for this type of object."},
    {errInvalidFieldType, "Invalid data type of field '{}'."},
    {errFileInUseByOther, "Could not write to '{}'; currently locked by another user or process."},
    {errNoFieldDefined, "No field defined in '{}'; cannot append it."},
    {errItemNotFound, "Item not found in this collection."},
    {errNoSuchProperty, "Property not found."},
    {errFieldInIndex, "Cannot delete field '{}': it is part of an index."},
    {errPrimaryKeyExists, "Primary key already exists."},
    {errIndexExists, "Index '{}' already exists."},
    {errValueRequired, "The field '{}' cannot contain a Null value: a value is required."},
    {errZeroLength, "Field '{}' cannot be a zero-length string."},
    {errUnrecognisedFormat, "Unrecognized database format '{}'."},
    {errObjectExists, "Cannot append. An object with the name '{}' already exists in the collection."},
    {errIndexFieldNotFound, "Invalid field name '{}' in definition of index."},
    {errObjectInvalid, "Object invalid or no longer set."},
    {errDataConversion, "Data type conversion error."},
};
static_assert(std::ranges::is_sorted(descriptions, {}, &Description::number));

std::string_view pattern(ErrorNumber number) {
    const auto found = std::ranges::lower_bound(descriptions, number, {}, &Description::number);
    if (found == std::end(descriptions) || found->number != number)
        return "Application-defined or object-defined error";
    return found->text;
}

std::string_view shownName(std::string_view name) {
    return name.find_first_not_of(' ') == std::string_view::npos ? "(no name)" : name;
}

} // namespace

RuntimeError::RuntimeError(int number, std::string description, std::string engineText)
    : m_number(number), m_description(std::move(description)), m_engineText(std::move(engineText)) {}

void raise(ErrorNumber number, std::initializer_list<std::string_view> arguments, std::string engineText) {
    throw RuntimeError(number, describe(number, arguments), std::move(engineText));
}

std::string describe(ErrorNumber number, std::initializer_list<std::string_view> arguments) {
    constexpr std::string_view place = "{}";
    std::string result;
    std::string_view rest = pattern(number);
    const auto* argument = arguments.begin();
    for (auto at = rest.find(place); at != std::string_view::npos; at = rest.find(place)) {
        result += rest.substr(0, at);
        result += shownName(argument == arguments.end() ? "" : *argument++);
        rest.remove_prefix(at + place.size());
    }
    return result.append(rest);
}

} // namespace tol::runtime
