// SPDX-License-Identifier: MIT
#include "data/sqlite/TableRewrite.h"

#include "data/sqlite/CatalogueTables.h"
#include "data/sqlite/Sql.h"

#include <algorithm>

namespace tol::data::sqlite {
namespace {

/// In a file of fewer entries in its schema ALTER TABLE takes some milliseconds at most.
constexpr std::int64_t manyEntries = 500;

constexpr const char* keptRows = "temp.\"MSysRewrite\"";

} // namespace

/// A row costs about as much to write twice as an entry to take apart once.
bool TableRewrite::pays() {
    const auto isOwn = [](const Column& column) { return column.own; };
    if (!m_table.own || !std::all_of(m_table.columns.begin(), m_table.columns.end(), isOwn))
        return false;
    auto entries =
        m_connection.cached("SELECT count(*), total(tbl_name = ? COLLATE NOCASE) FROM sqlite_schema");
    entries->bind(1, m_table.sqlName);
    entries->step();
    const std::int64_t all = entries->integer(0);
    const std::int64_t ofTable = entries->integer(1);
    if (all < manyEntries || ofTable != 1 + static_cast<std::int64_t>(m_table.indexes.size()))
        return false;
    const std::string rows = "SELECT 1 FROM " + quotedName(m_table.sqlName);
    return m_connection.number("SELECT count(*) FROM (" + rows + " LIMIT " + std::to_string(all) + ")") < all;
}

void TableRewrite::run(const ColumnChange& change) {
    readColumns(change);
    const std::vector<std::string> indexes = indexTexts();
    keepRows();
    makeAgain(change.added);
    fillAgain();
    for (const auto& sql : indexes)
        m_connection.execute(sql);
    CatalogueTables(m_connection).removeDeletedFields(m_table.sqlName);
}

/// In the order in which they were made, which decides where fields have the same ordinal.
void TableRewrite::readColumns(const ColumnChange& change) {
    auto query = m_connection.cached("SELECT name, type FROM pragma_table_info(?)");
    query->bind(1, m_table.sqlName);
    while (query->step()) {
        const std::string name(query->text(0));
        if (name == change.removed || name == m_table.rowKey[0] || name.starts_with(hiddenColumnPrefix))
            continue;
        const std::string newName = quotedName(name == change.renamed ? change.newName : name);
        m_columns += ", " + quotedName(name);
        m_newColumns += ", " + newName;
        m_definitions += ", " + newName + " " + std::string(query->text(1));
    }
}

std::vector<std::string> TableRewrite::indexTexts() {
    auto query = m_connection.cached(
        "SELECT sql FROM sqlite_schema WHERE type = 'index' AND tbl_name = ? COLLATE NOCASE ORDER BY rowid");
    query->bind(1, m_table.sqlName);
    std::vector<std::string> texts;
    while (query->step())
        texts.emplace_back(query->text(0));
    return texts;
}

void TableRewrite::keepRows() {
    m_connection.execute(std::string("CREATE TABLE ") + keptRows + " AS SELECT " +
                         quotedName(m_table.rowKey[0]) + m_columns + " FROM " + quotedName(m_table.sqlName) +
                         " NOT INDEXED");
}

/// The last row key that was given away counts on, so that no bookmark comes back for another row.
void TableRewrite::makeAgain(const std::string& added) {
    auto last = m_connection.cached("SELECT seq FROM sqlite_sequence WHERE name = ?");
    last->bind(1, m_table.sqlName);
    const bool anyLast = last->step();
    const std::int64_t number = anyLast ? last->integer(0) : 0;
    last->reset();
    const std::string table = quotedName(m_table.sqlName);
    m_connection.execute("DROP TABLE " + table);
    m_connection.execute("CREATE TABLE " + table + " (" + quotedName(m_table.rowKey[0]) +
                         " INTEGER PRIMARY KEY AUTOINCREMENT" + m_definitions +
                         (added.empty() ? "" : ", " + added) + ")");
    if (anyLast)
        m_connection.run("INSERT INTO sqlite_sequence (name, seq) VALUES (?, ?)", m_table.sqlName, number);
}

void TableRewrite::fillAgain() {
    m_connection.execute("INSERT INTO " + quotedName(m_table.sqlName) + " (" + quotedName(m_table.rowKey[0]) +
                         m_newColumns + ") SELECT * FROM " + keptRows);
    m_connection.execute(std::string("DROP TABLE ") + keptRows);
}

} // namespace tol::data::sqlite
