// SPDX-License-Identifier: MIT
#include "demo/SuiteReader.h"

#include <gmock/gmock.h>

#include <stdexcept>

namespace tol::demo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::string_view definition = R"(
group STAMP
  BY text20 pick LOGIN ?
database TOOLS
table SAWS 30
  NO   long seq
  NAME text12 tight each Hand | Band
  use STAMP
  primary SAWS = NO
  index SAWNAME = NAME NO
table ONE =1
  A bool
)";

Suite tools() {
    Suite suite;
    SuiteReader(suite).readDefinition({"tools.txt", definition});
    return suite;
}

Suite changed(std::string_view changes) {
    Suite suite = tools();
    SuiteReader(suite).readChanges({"changes.txt", changes}, "release 1");
    return suite;
}

std::string mistakeIn(std::string_view changes) {
    try {
        changed(changes);
    } catch (const std::logic_error& error) {
        return error.what();
    }
    return "none";
}

std::vector<std::string> fieldNames(const TableRecipe& table) {
    std::vector<std::string> names;
    for (const FieldRecipe& field : table.fields)
        names.push_back(field.definition.name);
    return names;
}

TEST(SuiteReader, ReadsTablesFieldsAndIndexes) {
    const Suite suite = tools();
    const TableRecipe& saws = suite.table("TOOLS.SAWS");
    EXPECT_EQ(saws.rows, 30);
    EXPECT_TRUE(saws.grows);
    EXPECT_FALSE(suite.table("TOOLS.ONE").grows);
    EXPECT_THAT(fieldNames(saws), ElementsAre("NO", "NAME", "BY"));

    const FieldRecipe& name = *saws.findField("NAME");
    EXPECT_EQ(name.definition.type, data::dbText);
    EXPECT_EQ(name.definition.size, 12);
    EXPECT_FALSE(name.definition.allowZeroLength);
    EXPECT_THAT(name.content.arguments, ElementsAre("Hand", "Band"));

    const FieldRecipe& by = *saws.findField("BY");
    EXPECT_TRUE(by.definition.allowZeroLength);
    EXPECT_TRUE(by.content.mayBeNull);
    EXPECT_EQ(by.content.kind, "pick");
    EXPECT_THAT(by.content.arguments, ElementsAre("LOGIN"));

    ASSERT_EQ(saws.indexes.size(), 2U);
    EXPECT_TRUE(saws.indexes[0].primary);
    EXPECT_FALSE(saws.indexes[1].unique);
    EXPECT_THAT(saws.indexes[1].fields, ElementsAre("NAME", "NO"));
}

TEST(SuiteReader, CarriesOutTheChangesOfOneHeading) {
    const Suite suite = changed(R"(
release 1
in TOOLS.SAWS
  - index SAWNAME
  ~ NAME text8
  + COLOUR byte
  + unique SAWCOLOUR = NO COLOUR
- table TOOLS.ONE
+ table TOOLS.FILES 4
  GRIT int
release 0
- table TOOLS.SAWS
)");
    const TableRecipe& saws = suite.table("TOOLS.SAWS");
    EXPECT_THAT(fieldNames(saws), ElementsAre("NO", "NAME", "BY", "COLOUR"));
    EXPECT_EQ(saws.findField("NAME")->definition.size, 8);
    EXPECT_EQ(saws.findField("NAME")->content.kind, "each") << "a change of size keeps the content";
    ASSERT_EQ(saws.indexes.size(), 2U);
    EXPECT_TRUE(saws.indexes[1].unique);
    EXPECT_EQ(suite.findTable("TOOLS", "ONE"), nullptr);
    EXPECT_EQ(suite.table("TOOLS.FILES").fields.size(), 1U);
}

TEST(SuiteReader, RefusesWhatCannotBeCarriedOut) {
    const auto inSaws = [](const std::string& line) {
        return mistakeIn("release 1\nin TOOLS.SAWS\n" + line);
    };
    EXPECT_THAT(inSaws("- COLOUR"), HasSubstr("changes.txt, line 3: no such field"));
    EXPECT_THAT(inSaws("- NAME"), HasSubstr("index SAWNAME still uses the field"));
    EXPECT_THAT(inSaws("~ COLOUR int"), HasSubstr("the field is there already, or is not"));
    EXPECT_THAT(inSaws("+ NO int"), HasSubstr("the field is there already, or is not"));
    EXPECT_THAT(inSaws("+ COLOUR paint"), HasSubstr("no type paint"));
    EXPECT_THAT(inSaws("+ COLOUR text"), HasSubstr("no type text"));
    EXPECT_THAT(inSaws("+ COLOUR"), HasSubstr("too few words"));
    EXPECT_THAT(inSaws("- index OTHER"), HasSubstr("the index is there already, or is not"));
    EXPECT_THAT(inSaws("+ index OTHER = SIZE"), HasSubstr("no field SIZE"));
    EXPECT_THAT(inSaws("+ index OTHER NAME"), HasSubstr("an index needs"));
    EXPECT_THAT(inSaws("use OTHER"), HasSubstr("no such group"));
    EXPECT_THAT(inSaws("- table TOOLS.OTHER"), HasSubstr("no such table"));
    EXPECT_THAT(inSaws("+ table TOOLS.ONE 3"), HasSubstr("the table is there already"));
    EXPECT_THAT(mistakeIn("release 1\nin TOOLS.OTHER\n+ A int"), HasSubstr("no table TOOLS.OTHER"));
}

TEST(SuiteReader, ThingsThatAreNotThereAreMistakes) {
    const Suite suite = tools();
    EXPECT_THROW((void)suite.table("TOOLS"), std::logic_error);
    EXPECT_THROW((void)suite.table("TOOLS.OTHER"), std::logic_error);
    EXPECT_THROW((void)suite.database("OTHER"), std::logic_error);
    EXPECT_EQ(suite.findTable("OTHER", "SAWS"), nullptr);
    EXPECT_EQ(suite.table("TOOLS.SAWS").findField("OTHER"), nullptr);
}

TEST(SuiteReader, EveryReleaseOfTheDemoCanBeRead) {
    for (int release = 1; release <= 4; ++release)
        EXPECT_EQ(suiteOf(release).databases().size(), 17U);
    EXPECT_EQ(programsOwn().databases().size(), 4U);
}

} // namespace
} // namespace tol::demo
