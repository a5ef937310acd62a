// SPDX-License-Identifier: MIT
#include "data/sqlite/CreateTableSql.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace tol::test {

using namespace data::sqlite;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

CreateTableSql parsed(const std::string& sql) {
    auto statement = CreateTableSql::parse(sql);
    EXPECT_TRUE(statement.has_value()) << sql;
    return std::move(statement).value();
}

std::vector<std::string> columnNames(const CreateTableSql& statement) {
    std::vector<std::string> names;
    names.reserve(statement.columns().size());
    for (const ColumnPart& column : statement.columns())
        names.push_back(column.name);
    return names;
}

std::vector<ConstraintKind> kinds(const std::vector<ConstraintPart>& parts) {
    std::vector<ConstraintKind> all;
    all.reserve(parts.size());
    for (const ConstraintPart& part : parts)
        all.push_back(part.kind);
    return all;
}

/// The text without every constraint of the kind.
std::string without(const std::string& sql, ConstraintKind kind) {
    CreateTableSql statement = parsed(sql);
    for (const ConstraintPart& part : statement.allConstraints())
        if (part.kind == kind)
            statement.removeConstraint(part);
    return statement.text("t");
}

std::string withoutColumns(const std::string& sql, const std::vector<std::string>& names) {
    CreateTableSql statement = parsed(sql);
    for (const std::string& name : names)
        statement.removeColumn(name);
    return statement.text("t");
}

} // namespace

TEST(CreateTableSql, FindsColumnsInAllQuotes) {
    const CreateTableSql statement =
        parsed("CREATE TABLE t(a, \"b \"\"q\" INT, [c d] TEXT(10, 2), `e` 'odd type', "
               "'f' NOT NULL, Ä VARCHAR(20) )");
    EXPECT_THAT(columnNames(statement), ElementsAre("a", "b \"q", "c d", "e", "f", "Ä"));
    EXPECT_THAT(statement.constraints(), IsEmpty());
    EXPECT_FALSE(statement.withoutRowId());
}

TEST(CreateTableSql, TellsColumnConstraintsApart) {
    using enum ConstraintKind;
    const CreateTableSql statement = parsed(
        "CREATE TABLE t(a INTEGER CONSTRAINT pk PRIMARY KEY DESC ON CONFLICT FAIL AUTOINCREMENT NOT NULL ON "
        "CONFLICT IGNORE UNIQUE ON CONFLICT REPLACE CHECK (a IN (1, 2)) DEFAULT -1 COLLATE nocase REFERENCES "
        "o(x, y) ON DELETE SET NULL ON UPDATE NO ACTION MATCH simple NOT DEFERRABLE INITIALLY IMMEDIATE "
        "NULL, "
        "b GENERATED ALWAYS AS (a * 2) STORED, c AS (a), d DEFAULT (1 + 2) DEFAULT 'x' DEFAULT "
        "current_date)");
    ASSERT_EQ(statement.columns().size(), 4U);
    EXPECT_THAT(kinds(statement.columns()[0].constraints),
                ElementsAre(PrimaryKey, NotNull, Unique, Check, Default, Collate, ForeignKey, Other));
    EXPECT_EQ(statement.columns()[0].constraints[0].name, "pk");
    EXPECT_THAT(statement.columns()[0].constraints[0].columns, ElementsAre("a"));
    EXPECT_THAT(kinds(statement.columns()[1].constraints), ElementsAre(Generated));
    EXPECT_THAT(kinds(statement.columns()[2].constraints), ElementsAre(Generated));
    EXPECT_THAT(kinds(statement.columns()[3].constraints), ElementsAre(Default, Default, Default));
}

TEST(CreateTableSql, TellsTableConstraintsApart) {
    using enum ConstraintKind;
    const CreateTableSql statement = parsed("CREATE TABLE t(a, b, c, CONSTRAINT [p k] PRIMARY KEY (a COLLATE "
                                            "nocase DESC, \"b\") ON CONFLICT ABORT, "
                                            "UNIQUE(c) CHECK(a > 0) CONSTRAINT f FOREIGN KEY (a, b) "
                                            "REFERENCES o ON DELETE SET DEFAULT DEFERRABLE "
                                            "INITIALLY DEFERRED)");
    EXPECT_THAT(kinds(statement.constraints()), ElementsAre(PrimaryKey, Unique, Check, ForeignKey));
    EXPECT_EQ(statement.constraints()[0].name, "p k");
    EXPECT_THAT(statement.constraints()[0].columns, ElementsAre("a", "b"));
    EXPECT_THAT(statement.constraints()[1].columns, ElementsAre("c"));
    EXPECT_EQ(statement.constraints()[3].name, "f");
    EXPECT_EQ(statement.constraints()[3].parentTable, "o");
    EXPECT_THAT(statement.constraints()[3].columns, ElementsAre("a", "b"));
}

TEST(CreateTableSql, KnowsColumnsWhoseTypesOrNamesLookLikeKeywords) {
    const CreateTableSql statement =
        parsed("CREATE TABLE t(key TEXT, desc INT, \"primary\" INT, generated TEXT, always INT)");
    EXPECT_THAT(columnNames(statement), ElementsAre("key", "desc", "primary", "generated", "always"));
}

TEST(CreateTableSql, RefusesWhatIsNoTableWithColumns) {
    for (const char* sql :
         {"", "CREATE", "CREATE VIEW v AS SELECT 1", "CREATE VIRTUAL TABLE t USING fts5(a)", "CREATE TABLE",
          "CREATE TABLE t", "CREATE TABLE t(", "CREATE TABLE t()", "CREATE TABLE t(a",
          "CREATE TABLE t AS SELECT 1", "CREATE TABLE t.", "CREATE TABLE t(CHECK(1))"})
        EXPECT_FALSE(CreateTableSql::parse(sql).has_value()) << sql;
}

TEST(CreateTableSql, GivesTheRestBackLetterForLetter) {
    EXPECT_EQ(parsed("CREATE TABLE old -- why\n ( a INT /* first */,\n b  TEXT ) ").text("new \"one\""),
              "CREATE TABLE \"new \"\"one\"\"\" -- why\n ( a INT /* first */,\n b  TEXT ) ");
    EXPECT_EQ(parsed("create temp table if not exists main.[old](a)").text("t"),
              "create temp table if not exists \"t\"(a)");
}

TEST(CreateTableSql, LeavesColumnsOutWithTheirCommas) {
    const std::string sql = "CREATE TABLE t(a INT, -- one\n b INT, -- two\n c INT -- three\n)";
    EXPECT_EQ(withoutColumns(sql, {"a"}), "CREATE TABLE \"t\"( -- one\n b INT, -- two\n c INT -- three\n)");
    EXPECT_EQ(withoutColumns(sql, {"B"}), "CREATE TABLE \"t\"(a INT, -- one\n  -- two\n c INT -- three\n)");
    EXPECT_EQ(withoutColumns(sql, {"c"}), "CREATE TABLE \"t\"(a INT, -- one\n b INT -- three\n)");
    EXPECT_EQ(withoutColumns("CREATE TABLE t(a, b, CHECK(1) UNIQUE(a))", {"b"}),
              "CREATE TABLE \"t\"(a,  CHECK(1) UNIQUE(a))");
    EXPECT_EQ(withoutColumns("CREATE TABLE t(a, b, c)", {"b", "c"}), "CREATE TABLE \"t\"(a)");
}

TEST(CreateTableSql, LeavesConstraintsOut) {
    using enum ConstraintKind;
    EXPECT_EQ(without("CREATE TABLE t(a INT CONSTRAINT p PRIMARY KEY AUTOINCREMENT NOT NULL, b)", PrimaryKey),
              "CREATE TABLE \"t\"(a INT  NOT NULL, b)");
    EXPECT_EQ(without("CREATE TABLE t(a, b, PRIMARY KEY(a), UNIQUE(b))", PrimaryKey),
              "CREATE TABLE \"t\"(a, b,  UNIQUE(b))");
    EXPECT_EQ(without("CREATE TABLE t(a, b, PRIMARY KEY(a), UNIQUE(b))", Unique),
              "CREATE TABLE \"t\"(a, b, PRIMARY KEY(a))");
    EXPECT_EQ(without("CREATE TABLE t(a, b, PRIMARY KEY(a) UNIQUE(b))", Unique),
              "CREATE TABLE \"t\"(a, b, PRIMARY KEY(a) )");
    EXPECT_EQ(without("CREATE TABLE t(a \"x\"UNIQUE DEFAULT 1, b)", Unique),
              "CREATE TABLE \"t\"(a \"x\" DEFAULT 1, b)");
    EXPECT_EQ(without("CREATE TABLE t(a [x]CHECK(1)DEFAULT 1)", Check),
              "CREATE TABLE \"t\"(a [x] DEFAULT 1)");
}

TEST(CreateTableSql, TellsWhichPartsUseAColumn) {
    const CreateTableSql statement = parsed("CREATE TABLE t(a, b, CHECK(a > 'b'), CHECK(lower(\"B\") <> a))");
    EXPECT_FALSE(statement.uses(statement.constraints()[0], "b"));
    EXPECT_TRUE(statement.uses(statement.constraints()[1], "b"));
}

TEST(CreateTableSql, MakesATableWithRowIds) {
    const auto ordinary = [](const std::string& options) {
        CreateTableSql statement = parsed("CREATE TABLE t(a PRIMARY KEY)" + options);
        EXPECT_TRUE(statement.withoutRowId());
        statement.removeWithoutRowId();
        return statement.text("t").substr(std::string("CREATE TABLE \"t\"(a PRIMARY KEY)").size());
    };
    EXPECT_EQ(ordinary(" WITHOUT ROWID"), " ");
    EXPECT_EQ(ordinary(" without rowid, STRICT"), "  STRICT");
    EXPECT_EQ(ordinary(" STRICT, WITHOUT ROWID"), " STRICT");
}

TEST(CreateTableSql, TakesAColumnInFront) {
    CreateTableSql statement = parsed("CREATE TABLE t(a, b, CHECK(1))");
    statement.prependColumn("k INTEGER PRIMARY KEY");
    EXPECT_EQ(statement.text("t"), "CREATE TABLE \"t\"(k INTEGER PRIMARY KEY, a, b, CHECK(1))");
    statement.removeColumn("a");
    statement.removeColumn("b");
    statement.removeConstraint(statement.constraints()[0]);
    EXPECT_EQ(statement.text("t"), "CREATE TABLE \"t\"(k INTEGER PRIMARY KEY)");
}

} // namespace tol::test
