// SPDX-License-Identifier: MIT
#pragma once

#include "data/Recordset.h"
#include "shell/vdfunctions/vdRecords.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tol::screens {

/// Where a text that is wider than its column is cut: names and paths differ at both ends.
enum class TextCut { End, Middle };

/// Where a text stands in its column.
enum class TextAlign { Left, Right, Centre };

/// A column of a list: an array of labels, one for each row, below a heading.
struct BrowseColumn {
    std::string label;             ///< name of the label array, such as "lblMODULEID"
    std::string headingLabel = {}; ///< name of the heading, such as "lblHMODULEID"
    std::string heading = {};
    int width = 0; ///< twips; a column of width 0 is kept but not shown
    /// The field that is shown, Null as its type's blank value; or, if set, the text for the current record.
    std::string field = {};
    std::function<std::string(data::Recordset&)> text = nullptr;
    TextCut cut = TextCut::End;
    TextAlign align = TextAlign::Left;
    bool selects = true; ///< whether a click on it is one on its row
};

/// The children of one parent record, as a list shows them.
struct BrowseSubset {
    /// The parent's key values with their fields in the recordset.
    std::function<shell::KeyPairs(data::Recordset&)> keys;
    /// Whether there is no parent; the list is then left alone. Without this there always is one.
    std::function<bool()> parentIsBlank = nullptr;
    std::string textWithoutParent = " "; ///< what the description column then says in row 0
};

/// All that sets one list apart from another.
struct BrowseDescription {
    std::string index = {};                   ///< "" for stored order
    std::vector<BrowseColumn> columns;        ///< the first one holds the key
    std::optional<int> descriptionColumn = 1; ///< shows the two texts below; without, they are not shown
    int rows = 7;
    std::string endText = "End of List.";
    std::string emptyText = "List is Empty.";
    BrowseSubset subset = {}; ///< without keys: the whole table
};

} // namespace tol::screens
