// SPDX-License-Identifier: MIT
#include "jobsites/model/UserSettings.h"

#include "support/StartFolder.h"
#include "support/TestHost.h"
#include "support/TestTable.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace tol::test {
namespace {

using namespace jobsites;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* file = R"(C:\ZOVUSER\ZOVUSER.MDB)";
constexpr const char* saveText = "Could not Save User Settings for Job Site";
const std::string loadText = "Could not Load User Settings for Job Site Selected. Field Name: ";

class UserSettings : public testing::Test {
  protected:
    static TestTable settingsTable(const std::vector<TestColumn>& columns) {
        return {file, "SETTINGS", columns};
    }
    static TestTable ofSitesTable(const std::vector<TestColumn>& columns) {
        return {file, "DBSETTINGS", columns, {{"DBSETTINGS", {"DBTAG"}}}};
    }
    void expectError(const std::string& text) const {
        ASSERT_EQ(person.boxes.size(), 1U);
        EXPECT_EQ(person.boxes[0].title, "Error");
        EXPECT_EQ(person.boxes[0].text, text);
        EXPECT_EQ(person.boxes[0].style, runtime::MsgStyle{});
    }

    StartFolder folder;
    TestHost person;
};

/// With the same fields in both tables.
class SameFields : public UserSettings {
  protected:
    TestTable settings =
        settingsTable({{"DBTAG", data::dbLong}, {"PRINTER", data::dbText, 20}, {"COPIES", data::dbInteger}});
    TestTable ofSites =
        ofSitesTable({{"DBTAG", data::dbLong}, {"PRINTER", data::dbText, 20}, {"COPIES", data::dbInteger}});
};

TEST_F(SameFields, AreSavedForTheSiteInANewRow) {
    settings.add({{1, "Office", 2}});
    EXPECT_TRUE(vdSaveUserSettings(R"(C:\ELSEWHERE)", 7));
    EXPECT_THAT(ofSites.rows(), ElementsAre("7|Office|2"));
    EXPECT_THAT(settings.rows(), ElementsAre("1|Office|2"));
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(SameFields, AreSavedInTheRowThatTheSiteHas) {
    settings.add({{1, "Office", runtime::Null()}});
    ofSites.add({{6, "Six", 6}, {7, "Seven", 7}});
    EXPECT_TRUE(vdSaveUserSettings("", 7));
    EXPECT_THAT(ofSites.rows(), ElementsAre("6|Six|6", "7|Office|Null"));
}

TEST_F(SameFields, ArePutInForceExceptForTheNumber) {
    settings.add({{1, "Office", 2}});
    ofSites.add({{6, "Six", 6}, {7, "Seven", 7}});
    EXPECT_TRUE(vdLoadUserSettings(R"(C:\ELSEWHERE)", 7));
    EXPECT_THAT(settings.rows(), ElementsAre("1|Seven|7"));
    EXPECT_THAT(ofSites.rows(), ElementsAre("6|Six|6", "7|Seven|7"));
}

TEST_F(SameFields, OfASiteThatWasNeverUsedAreEmpty) {
    settings.add({{1, "Office", 2}});
    EXPECT_TRUE(vdLoadUserSettings("", 7));
    EXPECT_THAT(ofSites.rows(), ElementsAre("7|Null|Null"));
    EXPECT_THAT(settings.rows(), ElementsAre("1|Null|Null"));
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(SameFields, AreThoseOfTheFirstRow) {
    settings.add({{1, "First", 1}, {2, "Second", 2}});
    ofSites.add({{7, "Seven", 7}, {7, "Again", 8}});
    EXPECT_TRUE(vdSaveUserSettings("", 3));
    EXPECT_TRUE(vdLoadUserSettings("", 7));
    EXPECT_THAT(settings.rows(), ElementsAre("1|Seven|7", "2|Second|2"));
    EXPECT_THAT(ofSites.rows(), ElementsAre("3|First|1", "7|Seven|7", "7|Again|8"));
}

TEST_F(SameFields, ThatAreNotThereAreToldAndNothingIsSaved) {
    EXPECT_FALSE(vdSaveUserSettings("", 7));
    expectError(saveText);
    EXPECT_THAT(ofSites.rows(), IsEmpty());
}

TEST_F(SameFields, CanNotBePutInForceWithoutARow) {
    EXPECT_FALSE(vdLoadUserSettings("", 7));
    expectError(loadText);
    EXPECT_THAT(settings.rows(), IsEmpty());
    EXPECT_THAT(ofSites.rows(), ElementsAre("7|Null|Null"));
}

TEST_F(SameFields, ChangeFromOneSiteToAnotherAndBack) {
    settings.add({{1, "Office", 2}});
    ofSites.add({{7, "Seven", 7}});
    EXPECT_TRUE(changeUserSettings(1, 7));
    EXPECT_THAT(settings.rows(), ElementsAre("1|Seven|7"));
    EXPECT_TRUE(changeUserSettings(7, 1));
    EXPECT_THAT(settings.rows(), ElementsAre("1|Office|2"));
    EXPECT_THAT(ofSites.rows(), ElementsAre("1|Office|2", "7|Seven|7"));
}

TEST_F(SameFields, AreNotPutInForceWhenTheOthersCanNotBeSaved) {
    ofSites.add({{7, "Seven", 7}});
    EXPECT_FALSE(changeUserSettings(1, 7));
    expectError(saveText);
}

TEST_F(SameFields, TellWhoseTheyAre) {
    EXPECT_EQ(siteInForce(), std::nullopt);
    settings.add({{runtime::Null(), "Office", 2}});
    EXPECT_EQ(siteInForce(), std::nullopt);
    noteSiteInForce(7);
    EXPECT_EQ(siteInForce(), 7);
    EXPECT_THAT(settings.rows(), ElementsAre("7|Office|2"));
}

TEST_F(UserSettings, OfOneTableAloneAreLeftOut) {
    const TestTable settings =
        settingsTable({{"ONLYHERE", data::dbText, 5}, {"BOTH", data::dbText, 5}, {"Case", data::dbText, 5}});
    const TestTable ofSites = ofSitesTable({{"CASE", data::dbText, 5},
                                            {"DBTAG", data::dbLong},
                                            {"BOTH", data::dbText, 5},
                                            {"ONLYTHERE", data::dbText, 5}});
    settings.add({{"a", "b", "c"}});
    EXPECT_TRUE(vdSaveUserSettings("", 1));
    EXPECT_THAT(ofSites.rows(), ElementsAre("Null|1|b|Null"));
    ofSites.add({{"x", 2, "y", "z"}});
    EXPECT_TRUE(vdLoadUserSettings("", 2));
    EXPECT_THAT(settings.rows(), ElementsAre("a|y|c"));
    noteSiteInForce(2); // has no place
    EXPECT_EQ(siteInForce(), std::nullopt);
    EXPECT_THAT(settings.rows(), ElementsAre("a|y|c"));
}

TEST_F(UserSettings, WithNothingInCommonAreSavedAsARow) {
    const TestTable settings = settingsTable({{"A", data::dbText, 5}});
    const TestTable ofSites = ofSitesTable({{"DBTAG", data::dbLong}});
    EXPECT_TRUE(vdSaveUserSettings("", 1));
    EXPECT_THAT(ofSites.rows(), ElementsAre("1"));
}

TEST_F(UserSettings, TakeTheTypeThatTheOtherTableHas) {
    const TestTable settings =
        settingsTable({{"COPIES", data::dbInteger}, {"SIZE", data::dbDouble}, {"SHOWN", data::dbBoolean}});
    const TestTable ofSites = ofSitesTable({{"DBTAG", data::dbLong},
                                            {"COPIES", data::dbText, 5},
                                            {"SIZE", data::dbInteger},
                                            {"SHOWN", data::dbLong}});
    settings.add({{3, 9.75, true}});
    EXPECT_TRUE(vdSaveUserSettings("", 1));
    EXPECT_THAT(ofSites.rows(), ElementsAre("1|3|10|-1"));
    EXPECT_TRUE(vdLoadUserSettings("", 1));
    EXPECT_THAT(settings.rows(), ElementsAre("3|10|True"));
}

TEST_F(UserSettings, ThatDoNotConvertAreToldWithTheirField) {
    const TestTable settings = settingsTable({{"PRINTER", data::dbText, 20}, {"COPIES", data::dbInteger}});
    const TestTable ofSites =
        ofSitesTable({{"DBTAG", data::dbLong}, {"PRINTER", data::dbText, 20}, {"COPIES", data::dbText, 20}});
    settings.add({{"Office", 2}});
    ofSites.add({{1, "Site", "many"}, {2, "Site", "70000"}});
    for (const std::int32_t site : {1, 2}) {
        person.boxes.clear();
        EXPECT_FALSE(vdLoadUserSettings("", site));
        expectError(loadText + "COPIES");
        EXPECT_THAT(settings.rows(), ElementsAre("Office|2")) << "the printer was taken alone";
    }
}

TEST_F(UserSettings, ThatDoNotFitAreNotSaved) {
    const TestTable settings = settingsTable({{"PRINTER", data::dbText, 20}});
    const TestTable ofSites = ofSitesTable({{"DBTAG", data::dbLong}, {"PRINTER", data::dbText, 5}});
    settings.add({{"Front Office"}});
    EXPECT_FALSE(vdSaveUserSettings("", 1));
    expectError(saveText);
    EXPECT_THAT(ofSites.rows(), IsEmpty());
}

TEST_F(UserSettings, WithoutTheirTablesOrTheirFileAreTold) {
    EXPECT_FALSE(vdSaveUserSettings("", 1));
    expectError(saveText);
    person.boxes.clear();
    std::filesystem::remove(folder.driveC() / "ZOVUSER/ZOVUSER.MDB");
    EXPECT_FALSE(vdLoadUserSettings("", 1));
    expectError(loadText);
    EXPECT_EQ(siteInForce(), std::nullopt);
}

} // namespace
} // namespace tol::test
