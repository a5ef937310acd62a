// SPDX-License-Identifier: MIT
#include "shell/vdfunctions/vdRecords.h"

#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "shell/vdfunctions/vdNullCheck.h"

#include <algorithm>

namespace tol::shell {

bool vdRecordOK(data::Recordset& recordset, const KeyPairs& pairs) {
    try {
        // A table without records is at both ends, so they answer for RecordCount too, which would look into
        // the file for every record of a walk.
        if (recordset.AtBOF() || recordset.AtEOF())
            return false;
        return std::ranges::all_of(pairs, [](const KeyPair& pair) {
            return runtime::valuesEqual(vdNullCheck(pair.field), pair.key);
        });
    } catch (const runtime::RuntimeError&) {
        return false;
    }
}

std::string vdNextBookmark(data::Recordset& recordset, std::string_view mark, const KeyPairs& pairs) {
    recordset.Bookmark(mark);
    recordset.MoveNext();
    if (vdRecordOK(recordset, pairs))
        return recordset.Bookmark();
    recordset.Bookmark(mark);
    recordset.MovePrevious();
    return vdRecordOK(recordset, pairs) ? recordset.Bookmark() : " ";
}

std::string vdFindFirst(data::Recordset& recordset, const std::string& index, const KeyPairs& pairs) {
    // Setting an index goes to its first record, which the search does not need.
    if (!runtime::sameText(recordset.Index(), index))
        recordset.Index(index);
    std::vector<runtime::Value> keys;
    keys.reserve(pairs.size());
    for (const KeyPair& pair : pairs)
        keys.push_back(pair.key);
    recordset.Seek(">=", keys);
    if (recordset.NoMatch())
        return {};
    const bool isMatch = std::ranges::all_of(
        pairs, [](const KeyPair& pair) { return runtime::valuesEqual(pair.field.Value(), pair.key); });
    return isMatch ? recordset.Bookmark() : std::string();
}

} // namespace tol::shell
