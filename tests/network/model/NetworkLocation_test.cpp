// SPDX-License-Identifier: MIT
#include "network/model/NetworkLocation.h"

#include "data/OpenTable.h"
#include "platform/Paths.h"
#include "support/Raises.h"
#include "support/StartFolder.h"
#include "support/TestHost.h"
#include "support/TestTable.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using runtime::Value;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class NetworkLocation : public testing::Test {
  protected:
    static std::optional<std::string> locationFor(const char* module) {
        return network::networkLocation(network::suiteModule(module));
    }
    /// A path file with a table for each name; the location of each tells whose it is.
    static void makePathFile(const std::string& file, const std::vector<std::string>& tables) {
        for (const std::string& table : tables)
            TestTable(file, table, {{"Path", data::dbText, 100}}).add({{"C:\\" + table}});
    }
    static std::vector<std::string> tablesOf(const std::string& file) {
        data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
        const data::Database database = workspace.OpenDatabase(file);
        std::vector<std::string> names;
        for (int i = 0; i < database.TableDefs().Count(); ++i)
            names.push_back(database.TableDefs()(i).Name());
        return names;
    }

    StartFolder folder;
    TestHost person;
};

TEST_F(NetworkLocation, IsThatOfTheRowWithoutOneBackslash) {
    folder.addPath("  C:\\NET\\\\ ");
    EXPECT_EQ(locationFor("NET"), "C:\\NET\\");
    EXPECT_THAT(folder.paths(), ElementsAre(Value("  C:\\NET\\\\ ")));
}

TEST_F(NetworkLocation, IsTheCurrentFolderWhereNoneIsStored) {
    EXPECT_EQ(locationFor("NET"), platform::currentFolder());
    EXPECT_THAT(folder.paths(), ElementsAre(Value(platform::currentFolder())));
}

class SiblingPathFile : public NetworkLocation {
  protected:
    SiblingPathFile() { folder.remove("NETPATH.MDB"); }
};

TEST_F(SiblingPathFile, BecomesThisProgramsFile) {
    makePathFile("ORVPATH.MDB", {"ORVPATH"});
    for (const char* module : {"ORV", "CLD"}) {
        EXPECT_EQ(locationFor(module), "C:\\ORVPATH");
        EXPECT_THAT(tablesOf("NETPATH.MDB"), ElementsAre("NETPATH"));
        EXPECT_THAT(tablesOf("ORVPATH.MDB"), ElementsAre("ORVPATH"));
        folder.remove("NETPATH.MDB");
    }
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(SiblingPathFile, GivesTheNameToTheLastTableThatMayHaveIt) {
    makePathFile("SNTPATH.MDB", {"ZZLAST", "SNTPATH", "APATHS", "ALL"});
    EXPECT_EQ(locationFor("SNT"), "C:\\SNTPATH");
    EXPECT_THAT(tablesOf("NETPATH.MDB"), ElementsAre("ALL", "APATHS", "NETPATH", "ZZLAST"));
}

TEST_F(SiblingPathFile, IsNoneWithoutATableForPaths) {
    makePathFile("BRLPATH.MDB", {"BRLpath", "OTHER"});
    EXPECT_EQ(errorOf([] { locationFor("BRL"); }), 3265);
    EXPECT_THAT(tablesOf("NETPATH.MDB"), ElementsAre("BRLpath", "OTHER"));
}

TEST_F(SiblingPathFile, IsLeftAloneWhereThisProgramHasItsOwn) {
    makePathFile("ORVPATH.MDB", {"ORVPATH"});
    makePathFile("NETPATH.MDB", {"APATHS", "NETPATH"});
    EXPECT_EQ(locationFor("ORV"), "C:\\NETPATH");
    EXPECT_THAT(tablesOf("NETPATH.MDB"), ElementsAre("APATHS", "NETPATH"));
}

TEST_F(SiblingPathFile, WhoseLastTableComesBehindNETPATHCanNotBeRenamed) {
    makePathFile("NETPATH.MDB", {"NETPATH", "ORVPATH"});
    EXPECT_EQ(errorOf([] { locationFor("NET"); }), 3010);
    EXPECT_THAT(tablesOf("NETPATH.MDB"), ElementsAre("NETPATH", "ORVPATH"));
}

TEST_F(SiblingPathFile, CanNotBeCopiedWhenItIsMissingToo) {
    const auto read = [] { locationFor("PLN"); };
    EXPECT_EQ(errorOf(read), 53);
    EXPECT_THAT(descriptionOf(read), HasSubstr("File not found: 'PLNPATH.MDB'"));
    EXPECT_EQ(errorOf([] { locationFor("NET"); }), 53) << "it is its own path file";
    EXPECT_FALSE(std::filesystem::exists("NETPATH.MDB"));
}

TEST_F(SiblingPathFile, IsWantedOfModulesThatHaveOneOnly) {
    for (const char* module : {"TRS", "XYZ"}) {
        EXPECT_EQ(locationFor(module), std::nullopt);
        EXPECT_FALSE(std::filesystem::exists("NETPATH.MDB"));
    }
    makePathFile("NETPATH.MDB", {"NETPATH"});
    EXPECT_EQ(locationFor("TRS"), "C:\\NETPATH");
}

TEST_F(SiblingPathFile, ThatIsNoDatabaseIsAnErrorEachTime) {
    folder.write("ORVPATH.MDB", "no database");
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(errorOf([] { locationFor("ORV"); }), 3343);
}

class StoredLocation : public NetworkLocation {};

TEST_F(StoredLocation, TakesTheRowOrMakesIt) {
    for (const char* location : {"C:\\NET", "//server/share", "  anything at all "}) {
        network::storeLocation(location);
        EXPECT_THAT(folder.paths(), ElementsAre(Value(location)));
    }
    network::storeLocation("");
    EXPECT_THAT(folder.paths(), ElementsAre(Value(" ")));
    EXPECT_EQ(locationFor("NET"), platform::currentFolder());
}

TEST_F(StoredLocation, TakesTheFirstOfSeveralRows) {
    folder.addPath("first");
    folder.addPath("second");
    network::storeLocation("new");
    EXPECT_THAT(folder.paths(), ElementsAre(Value("new"), Value("second")));
}

TEST_F(StoredLocation, HasToFitTheField) {
    const std::string longest(200, 'x');
    network::storeLocation(longest);
    EXPECT_EQ(errorOf([&] { network::storeLocation(longest + 'x'); }), 3163);
    EXPECT_THAT(folder.paths(), ElementsAre(Value(longest)));
}

} // namespace
} // namespace tol::test
