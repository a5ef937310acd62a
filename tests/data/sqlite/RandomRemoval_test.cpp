// SPDX-License-Identifier: MIT
#include "RandomTable.h"
#include "data/sqlite/connection/Connection.h"
#include "data/sqlite/definitions/ColumnRemoval.h"
#include "data/sqlite/definitions/PragmaSchema.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace tol::test {

using namespace data::sqlite;

namespace {

/// What SQLite itself says about the table "t", leaving out all that has to do with one column; of the
/// columns in `key`, the table's primary key at first, also whether they may be Null if that one is in it.
class Description {
  public:
    Description(Connection& connection, const RandomTable& table, const std::vector<std::string>& key,
                std::string without)
        : m_table(readSchema(connection, "t").at("t")),
          m_conditions(table.conditions()),
          m_without(std::move(without)) {
        describeColumns(key);
        describeIndexes();
        describeForeignKeys(connection);
        describeRows(connection);
    }
    [[nodiscard]] const std::vector<std::string>& lines() const { return m_lines; }
    [[nodiscard]] bool hasRowIds() const { return !m_table.withoutRowId; }

  private:
    [[nodiscard]] bool isOut(const std::string& column) const { return sameSqlName(column, m_without); }

    void describeColumns(const std::vector<std::string>& key) {
        const bool keyStays = std::ranges::none_of(key, [this](const auto& column) { return isOut(column); });
        for (const SchemaColumn& column : m_table.columns) {
            if (isOut(column.name))
                continue;
            std::string line = column.name + " " + column.type +
                               (column.defaultValue ? " default " + *column.defaultValue : "");
            // Without the key its columns may be Null.
            if (keyStays || std::ranges::find(key, column.name) == key.end())
                line +=
                    (column.notNull ? " not null " : " ") + std::to_string(keyStays ? column.keyPosition : 0);
            m_lines.push_back(line);
        }
    }

    void describeIndexes() {
        for (const SchemaIndex& index : m_table.indexes) {
            const auto condition = m_conditions.find(index.name);
            if ((condition != m_conditions.end() && isOut(condition->second)) ||
                std::ranges::any_of(index.keys, [this](const SchemaKey& key) { return isOut(key.column); }))
                continue;
            std::string line = index.origin == IndexOrigin::Created ? index.name : "automatic";
            line += index.unique ? " unique" : "";
            line += index.partial ? " partial" : "";
            for (const SchemaKey& key : index.keys)
                line += " " + key.column + " " + key.collation + (key.descending ? " desc" : "");
            m_lines.push_back(line);
        }
    }

    void describeForeignKeys(Connection& connection) {
        Statement query(connection,
                        "SELECT \"from\", \"table\" || ' ' || ifnull(\"to\", '') || ' ' || on_delete "
                        "FROM pragma_foreign_key_list('t')");
        std::vector<std::string> keys;
        while (query.step())
            if (!isOut(std::string(query.text(0))))
                keys.push_back(std::string(query.text(0)) + " -> " + std::string(query.text(1)));
        std::ranges::sort(keys);
        m_lines.insert(m_lines.end(), keys.begin(), keys.end());
    }

    void describeRows(Connection& connection) {
        std::string columns;
        for (const SchemaColumn& column : m_table.columns)
            if (!isOut(column.name))
                columns += "quote(" + quotedName(column.name) + ") || ',' || ";
        // The rows were made in the order of their values.
        Statement query(connection, "SELECT " + columns + "'' FROM t ORDER BY 1");
        while (query.step())
            m_lines.emplace_back(query.text(0));
    }

    SchemaTable m_table;
    const std::map<std::string, std::string>& m_conditions;
    std::string m_without;
    std::vector<std::string> m_lines;
};

std::vector<std::int64_t> rowIds(Connection& connection) {
    const auto name = readSchema(connection, "t").at("t").rowIdName();
    std::vector<std::int64_t> ids;
    if (!name)
        return ids;
    Statement query(connection, "SELECT " + quotedName(*name) + " FROM t NOT INDEXED");
    while (query.step())
        ids.push_back(query.integer(0));
    return ids;
}

} // namespace

TEST(RandomRemoval, ChangesNothingButTheColumn) {
    constexpr unsigned tables = 400;
    for (unsigned seed = 1; seed <= tables; ++seed) {
        RandomTable table(seed);
        const std::string& column = table.anyColumn();
        SCOPED_TRACE(std::to_string(seed) + " without " + column + "\n" + table.sql());

        Connection connection(":memory:", Connection::Mode::ReadWrite);
        connection.execute("CREATE TABLE other(id INTEGER PRIMARY KEY);" + table.sql());
        const std::vector<std::string> key = readSchema(connection, "t").at("t").primaryKey();
        const Description before(connection, table, key, column);
        const std::vector<std::int64_t> idsBefore = rowIds(connection);

        Losses losses(connection);
        ColumnRemoval(connection, "t", losses).drop(column);

        const Description after(connection, table, key, column);
        ASSERT_EQ(after.lines(), before.lines())
            << connection.text("SELECT sql FROM sqlite_schema WHERE name = 't'");
        ASSERT_EQ(readSchema(connection, "t").at("t").findColumn(column), nullptr);
        if (after.hasRowIds()) {
            // In tables without row ids SQLite 3.40 takes sound values for missing ones.
            ASSERT_EQ(connection.text("PRAGMA integrity_check"), "ok");
        }
        if (before.hasRowIds()) {
            ASSERT_EQ(rowIds(connection), idsBefore);
        }
    }
}

} // namespace tol::test
