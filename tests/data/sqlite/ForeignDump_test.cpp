// SPDX-License-Identifier: MIT
// Other makers' files as JSON: what a dump carries, and what it says it can't.
#include "EngineTest.h"
#include "ForeignFilesTest.h"
#include "data/json/DatabaseJson.h"

#include <gmock/gmock.h>

namespace tol::test {

using namespace data;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

class ForeignDump : public ForeignFilesTest {
  protected:
    /// The dump, with what it complains of.
    std::string dump() {
        complaints.clear();
        return json::databaseText(database, {.complain = [this](const runtime::RuntimeError& error) {
                                      complaints.push_back(std::to_string(error.number()) + " " +
                                                           error.description());
                                  }});
    }
    /// That a database made from the dump gives the same dump.
    void expectLoads() {
        open();
        const std::string text = dump();
        EXPECT_THAT(complaints, ElementsAre());
        json::makeDatabase("NEW.MDB", text);
        database.Close();
        database = workspace.OpenDatabase("NEW.MDB", false, true);
        EXPECT_EQ(dump(), text);
        EXPECT_THAT(complaints, ElementsAre());
    }

    std::vector<std::string> complaints;
};

TEST_F(ForeignDump, CarriesNamesThatNothingNewMayHave) {
    file.run("CREATE TABLE \"a.b\" (\"x.y\" INTEGER, \" lead\" TEXT(9), \"a[0]!`\" TEXT(9), \"" +
             std::string(80, 'n') + "\" INTEGER); CREATE INDEX \"i.x\" ON \"a.b\" (\"x.y\");" +
             "CREATE INDEX \"" + std::string(80, 'i') + "\" ON \"a.b\" (\" lead\");" +
             "INSERT INTO \"a.b\" VALUES (1, 'two', 'three', 4)");
    expectLoads();
}

TEST_F(ForeignDump, CarriesInfiniteNumbers) {
    file.run("CREATE TABLE t (a DOUBLE, b NUMERIC, c TEXT(9)); INSERT INTO t VALUES (9e999, -9e999, 9e999)");
    expectLoads();
}

TEST_F(ForeignDump, CarriesIdentifiersOfAnyForm) {
    file.run("CREATE TABLE t (a GUID, b UUID); INSERT INTO t VALUES ('hello', "
             "x'00112233445566778899AABBCCDDEEFF'),"
             "(x'FF00FE', '{00000000-0000-0000-0000-000000000000}')");
    expectLoads();
}

TEST_F(ForeignDump, SaysAtOnceWhichValuesNoLoadTakes) {
    file.run("CREATE TABLE t (a VARCHAR(3), b TEXT(5) PRIMARY KEY);"
             "INSERT INTO t VALUES ('abc', 'x'), ('abcd', NULL), ('abcde', NULL)");
    open();
    dump();
    EXPECT_THAT(
        complaints,
        ElementsAre(
            AllOf(HasSubstr("3163 Table \"t\", row 2, field \"a\": The field 'a' is too small"),
                  HasSubstr(file.path().native())),
            AllOf(HasSubstr("3058 Table \"t\", row 2, field \"b\": "), HasSubstr(file.path().native()))));
    const auto error = errorOf([this] { json::databaseText(database); });
    EXPECT_EQ(error.number(), 3163);
    EXPECT_THAT(error.description(), HasSubstr(file.path().native()));
}

TEST_F(ForeignDump, SaysAtOnceWhichTablesNoLoadMakes) {
    file.run("CREATE TABLE t (\"\xC3\x89\" INTEGER, \"\xC3\xA9\" INTEGER); CREATE TABLE \"\" (a INTEGER);"
             "CREATE TABLE u (a INTEGER, b INTEGER); CREATE INDEX i ON u (a, a)");
    open();
    dump();
    EXPECT_THAT(complaints, ElementsAre(HasSubstr("3125 Table \"\": "), HasSubstr("3191 Table \"t\": "),
                                        HasSubstr("3191 Table \"u\": ")));
}

TEST_F(ForeignDump, SaysWhichFieldBearsTheNameOfTheRowKey) {
    file.run("CREATE TABLE t (a INTEGER, msyskey INTEGER); INSERT INTO t VALUES (1, 2)");
    open();
    const std::string text = dump();
    EXPECT_THAT(complaints, ElementsAre(HasSubstr("3125 Table \"t\": 'msyskey' is not a valid name.")));
    EXPECT_EQ(errorOf([&] { json::makeDatabase("NEW.MDB", text); }).number(), 3125);
}

TEST_F(ForeignDump, SaysAtOnceWhichKeysAreOneToALoad) {
    file.run("CREATE TABLE t (a TEXT(9) UNIQUE, b TEXT(9), c INTEGER); CREATE UNIQUE INDEX i ON t (b, c);"
             "INSERT INTO t VALUES ('\xC3\x89t\xC3\xA9', 'x', 1), ('ETE', 'X', 2), (NULL, NULL, 1), (NULL, "
             "NULL, 1),"
             "('\xC3\xA9T\xC3\x89', 'y', 1), ('ete', 'Y', 1), ('other', 'y', 2)");
    open();
    const std::string text = dump();
    EXPECT_THAT(complaints, ElementsAre(AllOf(HasSubstr("3022 Table \"t\", row 5: "), HasSubstr("'a'"),
                                              HasSubstr(file.path().native())),
                                        AllOf(HasSubstr("3022 Table \"t\", row 6: "), HasSubstr("'i'"))));
    EXPECT_EQ(errorOf([&] { json::makeDatabase("NEW.MDB", text); }).number(), 3022);
}

TEST_F(ForeignDump, NamesFileTableRowAndFieldOfAValueThatCannotBeRead) {
    file.run("CREATE TABLE t (a INTEGER, b DATETIME); INSERT INTO t VALUES (1, NULL), (2, x'FF00')");
    open();
    const auto error = errorOf([this] { dump(); });
    EXPECT_EQ(error.number(), 3421);
    EXPECT_EQ(error.description(),
              "Table \"t\", row 2, field \"b\": Data type conversion error. (" + file.path().native() + ")");
}

} // namespace tol::test
