// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/Value.h"

#include <cstdint>
#include <string>

namespace tol::search_print {

/// What a search lists: rows of one table, in up to six columns told by lists with "|" between the entries.
/// Each list that is shorter leaves its last columns blank.
struct SearchDescription {
    std::string DBPath = {}; ///< folder of the database; blank: the name stands alone
    std::string DBName = {}; ///< with or without extension
    std::string TableName = {};
    std::string IndexList = {}; ///< the index that orders by the column; blank: nothing is sought in it
    std::string WindowTitle = {};
    std::string SearchTitle = {}; ///< line above the list
    std::string FieldList = {};
    std::string FormatList = {}; ///< "C" text, "N" number, with a number's format behind it
    std::string SizeList = {};   ///< longest text that may be typed, in characters
    std::string TitleList = {};
    std::string WidthList = {};     ///< twips; 0 hides the column
    std::string AlignList = {};     ///< "0" left, "1" right, "2" centre
    std::int16_t DefaultColumn = 0; ///< orders the list at first, counted from 1; 0 is the first, too
    /// Only the rows whose fields equal the values are listed. The fields are the leading ones of each index;
    /// the last one that is named tells how many there are. A value that is left out is 0.
    runtime::Value KeyValue1 = {};
    std::string KeyField1 = {};
    runtime::Value KeyValue2 = {};
    std::string KeyField2 = {};
    runtime::Value KeyValue3 = {};
    std::string KeyField3 = {};
    runtime::Value KeyValue4 = {};
    std::string KeyField4 = {};
    std::string Instruction = {}; ///< in place of the first line of help, unless blank
};

} // namespace tol::search_print
