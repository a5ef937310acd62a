// SPDX-License-Identifier: MIT
#pragma once

#include "data/DBEngine.h"
#include "runtime/Host.h"
#include "runtime/RuntimeError.h"
#include "runtime/Value.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tol::shell {

// The last message box that a shared routine showed.
extern std::string gMsgText;
extern std::string gMsgTitle;
extern std::int16_t gMsgResult;

/// A key value and the field that must equal it.
struct KeyPair {
    runtime::Value key;
    data::Field field;
};
using KeyPairs = std::vector<KeyPair>;

/// The field's value, or the type's blank value when it is Null: False, 0, 1 January 1900, as many
/// blanks as a text field's size, one blank for memo, binary and GUID. A run-time error (no current
/// record, typically) is shown in a box, and gives the same blanks, "  /  /  " for a date.
runtime::Value vdNullCheck(const data::Field& field);
/// vdNullCheck as text, trimmed or not.
std::string vdNullCheckText(const data::Field& field);

bool vdIsBlank(std::string_view text);
bool vdNotBlank(std::string_view text);
/// Directory look-up: the file's name, "" when absent.
std::string vdDir(std::string_view name);
std::string vdRepeat(std::string_view text, std::int16_t count);
std::string vdZeroPad(std::string_view value, int width);
std::string vdIntText(std::int16_t value, int width);
std::string vdLongText(std::int32_t value, int width);
std::string vdFormatOrDash(const runtime::Value& value, std::string_view format, bool dash);

/// Whether the recordset stands on a record whose fields equal the keys; false on any run-time error.
bool vdRecordOK(data::Recordset& recordset, const KeyPairs& pairs = {});
/// Where to go after the record at `mark` is deleted: the next record that fits the keys, else the
/// previous one, else " ". Moves the recordset; run-time errors pass through.
std::string vdNextBookmark(data::Recordset& recordset, std::string_view mark, const KeyPairs& pairs = {});
/// Bookmark of the first record at or after the keys if it equals them all, else "". Run-time errors pass
/// through.
std::string vdFindFirst(data::Recordset& recordset, const std::string& index, const KeyPairs& pairs);

/// Empties the recordset's table by rebuilding it (names, sizes and types of its fields, names and keys
/// of its indexes are kept). The recordset is closed afterwards in any case. False, after a box, when
/// the table can't be held exclusively or the disk is full, which a box of its own tells before. A blank
/// folder means the current one, "" as database MAIN.MDB.
bool vdEmptyTable(std::string_view folder, std::string_view database, data::Recordset& recordset);
/// The next number of a counter: prefix * 1000000 + n, 0 after a box on failure. Empty names stand for
/// MAIN.MDB and SYSTAGS.
std::int32_t vdGetNewTag(std::string_view folder, const std::string& field, std::string database,
                         std::string table, std::int32_t prefix);

/// The box of a window whose Load failed.
void vdFormLoadErrorBox(std::string_view windowName, std::string_view number, std::string_view description);
/// The box of a failure during processing. `number` is the error's number, often with a place behind it.
void vdProcessError(std::string_view place, std::string_view number, std::string_view description);
void vdNotReady();

/// Full path of ZOVNET.MDB by NETPATH.MDB of the current folder, else by `path`, else in the current
/// folder. Not found: "ERROR" after a box, or " " when quiet.
std::string vdNetPath(std::string_view path, bool quiet);
/// The log-in name, "Guest" when there is none or it is longer than the platform's buffer.
std::string vdUserName();

} // namespace tol::shell
