// SPDX-License-Identifier: MIT
#pragma once

#include "data/Recordset.h"
#include "runtime/Value.h"

#include <string>
#include <string_view>
#include <vector>

namespace tol::shell {

/// A key value and the field that must equal it.
struct KeyPair {
    runtime::Value key;
    data::Field field;
};
using KeyPairs = std::vector<KeyPair>;

/// Whether the recordset stands on a record whose fields equal the keys; false on any run-time error.
bool vdRecordOK(data::Recordset& recordset, const KeyPairs& pairs = {});
/// Where to go after the record at `mark` is deleted: the next record that fits the keys, else the
/// previous one, else " ". Moves the recordset; run-time errors pass through.
std::string vdNextBookmark(data::Recordset& recordset, std::string_view mark, const KeyPairs& pairs = {});
/// Bookmark of the first record at or after the keys if it equals them all, else "". Run-time errors pass
/// through.
std::string vdFindFirst(data::Recordset& recordset, const std::string& index, const KeyPairs& pairs);

} // namespace tol::shell
