// SPDX-License-Identifier: MIT
#include "RandomTable.h"

#include <algorithm>

namespace tol::test {

namespace {

/// Names that need quotes, that look like keywords, and plain ones.
const std::vector<std::string> names = {"a",      "B",     "order by", "check", "Größe", "it's",  "x,y",
                                        "a (b)",  "rowid", "key",      "desc",  "type",  "-- no", "/*",
                                        "unique", "F1",    "dot.ted",  "c d",   "select"};

} // namespace

RandomTable::RandomTable(unsigned seed) : m_random(seed) {
    m_columns = names;
    std::ranges::shuffle(m_columns, m_random);
    m_columns.resize(2 + below(6));

    std::string body;
    for (std::size_t column = 0; column < m_columns.size(); ++column)
        body += (column == 0 ? "" : ",") + gap() + columnSql(column);
    const bool withoutRowId = chance(25);
    if (withoutRowId || chance(30))
        body += "," + gap() + "PRIMARY KEY" + gap() + "(" + someColumns(2) + ")";
    bool behindConstraint = withoutRowId;
    for (std::size_t count = below(4); count > 0; --count) {
        // Between constraints of the table, and only there, commas may be left out.
        body += (behindConstraint && chance(30) ? "" : ",") + gap() + constraintSql();
        behindConstraint = true;
    }
    m_sql = "CREATE TABLE" + gap() + "t" + gap() + "(" + body + gap() + ")" +
            (withoutRowId ? " WITHOUT ROWID;\n" : ";\n");
    for (int row = 1; row <= 5; ++row)
        m_sql += rowSql(row);
    addIndexes();
}

/// The name in one of the four styles of quotes.
std::string RandomTable::written(const std::string& name) {
    const auto quoted = [&name](char mark) {
        std::string text(1, mark);
        for (const char c : name)
            text += c == mark ? std::string(2, c) : std::string(1, c);
        return text + mark;
    };
    switch (below(3)) {
    case 0:
        return quoted('"');
    case 1:
        return quoted('`');
    default:
        return "[" + name + "]";
    }
}

std::string RandomTable::gap() {
    return oneOf({" ", " ", "\n", "\t", " /* , ) */ ", " -- 'comment\n"});
}

std::string RandomTable::someColumns(std::size_t most) {
    std::vector<std::string> chosen = m_columns;
    std::ranges::shuffle(chosen, m_random);
    chosen.resize(std::min(chosen.size(), 1 + below(most)));
    std::string list;
    for (const std::string& column : chosen)
        list += (list.empty() ? "" : "," + gap()) + written(column) +
                oneOf({"", " DESC", " COLLATE nocase", " ASC"});
    return list;
}

std::string RandomTable::columnSql(std::size_t position) {
    const std::string name = written(m_columns[position]);
    std::string sql = name + oneOf({"", " INT", " INTEGER", " VARCHAR(10)", " DECIMAL(8, 2)", " \"odd type\"",
                                    " DOUBLE PRECISION"});
    if (chance(20))
        sql += gap() + "NOT NULL";
    if (chance(20))
        sql += gap() + oneOf({"DEFAULT 5", "DEFAULT -1.5", "DEFAULT 'x, y'", "DEFAULT (1 + (2))"});
    if (chance(15))
        sql += gap() + "COLLATE nocase";
    if (chance(15))
        sql += gap() + "CONSTRAINT" + gap() + "u" + std::to_string(position) + gap() + "UNIQUE";
    if (chance(15))
        sql +=
            gap() + "CHECK" + gap() + "(" + name + " IS NOT 'never' AND " + written(anyColumn()) + " <> ')')";
    if (chance(15))
        sql += gap() + "REFERENCES other(id)" +
               oneOf({"", " ON DELETE SET NULL", " DEFERRABLE INITIALLY DEFERRED"});
    return sql;
}

std::string RandomTable::constraintSql() {
    const std::string name =
        chance(50) ? "CONSTRAINT " + written("c" + std::to_string(below(1000))) + gap() : "";
    switch (below(3)) {
    case 0: {
        const std::string columns = written(anyColumn()) + ", " + written(anyColumn());
        return name + "UNIQUE" + gap() + "(" + columns + ")";
    }
    case 1:
        return name + "CHECK" + gap() + "(" + written(anyColumn()) + " IS NOT ',' OR lower(" +
               written(anyColumn()) + ") > 1)";
    default:
        return name + "FOREIGN KEY" + gap() + "(" + written(anyColumn()) + ") REFERENCES other";
    }
}

std::string RandomTable::rowSql(int row) {
    std::string values;
    for (std::size_t column = 0; column < m_columns.size(); ++column)
        values += (column == 0 ? "" : ", ") + std::to_string(row * 100 + static_cast<int>(column));
    return "INSERT INTO t VALUES(" + values + ");\n";
}

void RandomTable::addIndexes() {
    for (std::size_t count = below(4); count > 0; --count) {
        const std::string name = "i" + std::to_string(count);
        m_sql += "CREATE " + oneOf({"", "UNIQUE "}) + "INDEX " + name + " ON t(" + someColumns(3) + ")";
        if (chance(30)) {
            const std::string& column = anyColumn();
            m_sql += " WHERE " + written(column) + " IS NOT NULL";
            m_conditions[name] = column;
        }
        m_sql += ";\n";
    }
}

} // namespace tol::test
