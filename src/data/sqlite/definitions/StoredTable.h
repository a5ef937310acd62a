// SPDX-License-Identifier: MIT
#pragma once

#include "data/engine/Definition.h"

#include <memory>
#include <string>
#include <vector>

namespace tol::data::sqlite {

/// How the values of a column lie in the file.
enum class Storage {
    Native,          ///< integers, REAL, TEXT and BLOB as SQLite has them
    ScaledCurrency,  ///< Currency as the integer count of ten-thousandths (this program's own columns)
    DecimalCurrency, ///< Currency as a plain number (columns of other makers)
    WholeNumber,     ///< Double or text, as the integer that it is (columns of other makers)
    IsoDate,         ///< Date as "YYYY-MM-DD HH:MM:SS"; Julian days and Unix seconds are read too
};

/// One column behind a field, in the order of TableDefinition::fields.
struct Column {
    std::string name; ///< the column's name in the file
    Storage storage = Storage::Native;
    bool own = false;          ///< made by this program: has a row in the catalogue tables
    bool holdsNumbers = false; ///< made by another for whole numbers, of which some may be beyond a Long
};

enum class IndexKind {
    Own,        ///< CREATE INDEX by this program: text keys collate without regard to case
    Foreign,    ///< CREATE INDEX by others: collates as it was declared
    Constraint, ///< the automatic index behind UNIQUE or PRIMARY KEY; goes only with a rebuild of the table
    RowId,      ///< an INTEGER PRIMARY KEY: no index at all, the row key itself
};

struct StoredIndex {
    std::string sqlName; ///< the index's name in the file, "" for RowId
    IndexKind kind = IndexKind::Own;
    /// Collation of each key as ORDER BY and comparisons must name it, "" for the column's default.
    std::vector<std::string> collations;
    std::vector<bool> descending; ///< keys of foreign indexes may descend
    /// Sorted by another version of the collator, in a file that can't be written to: order and
    /// comparisons must be computed without it.
    bool outdated = false;
};

/// A table as the interface sees it, and where each part of it lies in the file. Immutable: a schema
/// step makes a new one.
struct StoredTable {
    TableDefinition definition;
    std::vector<Column> columns;      ///< beside definition.fields
    std::vector<StoredIndex> indexes; ///< beside definition.indexes
    std::string sqlName;              ///< the table's name in the file
    /// The row key: own key, alias or "rowid"; "" in a WITHOUT ROWID table, whose rows can't be opened.
    std::string rowKey;
    bool own = false;    ///< made by this program
    bool strict = false; ///< a STRICT table: columns may be declared with five types only
    /// A unique index of another maker that is no index of the interface: of expressions, or of some rows
    /// only.
    bool hasHiddenUnique = false;
    int hiddenColumns = 0; ///< deleted fields whose bytes still lie in the file
};

} // namespace tol::data::sqlite
