// SPDX-License-Identifier: MIT
#include "StartedProgram.h"

#include "data/DBEngine.h"
#include "platform/Paths.h"
#include "runtime/Host.h"
#include "runtime/RuntimeError.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using runtime::MsgButtons;
using runtime::MsgIcon;
using runtime::Null;
using runtime::Value;
using shell::frmTOLMAIN;
using testing::ElementsAre;

constexpr runtime::MsgStyle critical{MsgIcon::Critical, MsgButtons::Ok};
constexpr runtime::MsgStyle information{MsgIcon::Information, MsgButtons::Ok};

class StartUp : public Start {
  protected:
    // Loads the main window, which ends the program after one box.
    void expectEnd(const std::string& title, const std::string& text) {
        frmTOLMAIN main;
        person.onBox = [&](const Box&) {
            EXPECT_EQ(splash(), nullptr);
            EXPECT_FALSE(main.findChild<QTimer*>("Timer1")->isActive());
        };
        EXPECT_THROW(main.load(), ProgramEnded);
        ASSERT_EQ(person.boxes.size(), 1U);
        EXPECT_EQ(person.boxes[0].title, title);
        EXPECT_EQ(person.boxes[0].text, text);
        EXPECT_EQ(person.boxes[0].style, critical);
        EXPECT_FALSE(main.isVisible());
    }

    std::string loadedPath() {
        frmTOLMAIN main;
        main.load();
        EXPECT_THAT(person.texts(), ElementsAre());
        return main.sNetPath;
    }

    const std::string here = platform::currentFolder();
};

TEST_F(StartUp, BothDatabasesMissingGiveOneBoxOfTwoLines) {
    folder.remove("NETPATH.MDB");
    folder.remove("DBPATHS.MDB");
    expectEnd("Startup Error", "The database file " + here + "\\NETPATH.MDB is missing.\n" +
                                   "The database file " + here + "\\DBPATHS.MDB is missing.\n");
}

TEST_F(StartUp, NetPathMissing) {
    folder.remove("NETPATH.MDB");
    expectEnd("Startup Error", "The database file " + here + "\\NETPATH.MDB is missing.\n");
}

TEST_F(StartUp, JobSitesMissing) {
    folder.remove("DBPATHS.MDB");
    expectEnd("Startup Error", "The database file " + here + "\\DBPATHS.MDB is missing.\n");
}

TEST_F(StartUp, UserDatabaseMissing) {
    folder.remove("drives/c/ZOVUSER/ZOVUSER.MDB");
    expectEnd("A Required Database is Missing.",
              "This application requires the database file: ZOVUSER.MDB.\n"
              "The database must be on the local C Drive under the folder: C:\\ZOVUSER");
}

TEST_F(StartUp, DriveMissing) {
    std::filesystem::remove_all(folder.driveC());
    expectEnd("A Required Database is Missing.",
              "This application requires the database file: ZOVUSER.MDB.\n"
              "The database must be on the local C Drive under the folder: C:\\ZOVUSER");
}

TEST_F(StartUp, AllThreeMissingGiveTheFirstBoxAlone) {
    folder.remove("NETPATH.MDB");
    folder.remove("DBPATHS.MDB");
    folder.remove("drives/c/ZOVUSER/ZOVUSER.MDB");
    expectEnd("Startup Error", "The database file " + here + "\\NETPATH.MDB is missing.\n" +
                                   "The database file " + here + "\\DBPATHS.MDB is missing.\n");
}

TEST_F(StartUp, FindsFilesWhateverTheirCase) {
    std::filesystem::rename(folder / "NETPATH.MDB", folder / "netpath.mdb");
    std::filesystem::rename(folder / "DBPATHS.MDB", folder / "DbPaths.mdb");
    EXPECT_EQ(loadedPath(), here);
}

TEST_F(StartUp, AnEmptyTableGainsARowWithTheCurrentFolder) {
    EXPECT_EQ(loadedPath(), here);
    EXPECT_THAT(folder.paths(), ElementsAre(Value(here)));
}

TEST_F(StartUp, ANullPathIsFilledWithTheCurrentFolder) {
    folder.addPath(Null{});
    EXPECT_EQ(loadedPath(), here);
    EXPECT_THAT(folder.paths(), ElementsAre(Value(here)));
}

TEST_F(StartUp, ABlankPathIsFilledWithTheCurrentFolder) {
    folder.addPath("   ");
    EXPECT_EQ(loadedPath(), here);
    EXPECT_THAT(folder.paths(), ElementsAre(Value(here)));
}

TEST_F(StartUp, ATrailingBackslashIsStrippedInMemoryOnly) {
    folder.addPath("N:\\ZOV\\");
    EXPECT_EQ(loadedPath(), "N:\\ZOV");
    EXPECT_THAT(folder.paths(), ElementsAre(Value("N:\\ZOV\\")));
}

TEST_F(StartUp, OfTwoTrailingBackslashesOneIsStripped) {
    folder.addPath("N:\\ZOV\\\\");
    EXPECT_EQ(loadedPath(), "N:\\ZOV\\");
    EXPECT_THAT(folder.paths(), ElementsAre(Value("N:\\ZOV\\\\")));
}

TEST_F(StartUp, BlanksAroundThePathAreTrimmedInMemoryOnly) {
    folder.addPath("  N:\\ZOV  ");
    EXPECT_EQ(loadedPath(), "N:\\ZOV");
    EXPECT_THAT(folder.paths(), ElementsAre(Value("  N:\\ZOV  ")));
}

TEST_F(StartUp, OfSeveralRowsTheFirstCounts) {
    folder.addPath("N:\\ONE");
    folder.addPath("N:\\TWO");
    EXPECT_EQ(loadedPath(), "N:\\ONE");
}

TEST_F(StartUp, LeavesTheDatabaseClosed) {
    folder.addPath("N:\\ZOV");
    loadedPath();
    data::Workspace other = data::DBEngine::CreateWorkspace("wksTEST");
    data::Database database = other.OpenDatabase("NETPATH.MDB");
    EXPECT_NO_THROW(database.TableDefs().Delete("NETPATH")); // nobody has the table open
}

class StartUpError : public StartUp {
  protected:
    // Loads the main window, whose Load fails; the program stays up.
    void expectBox(const std::string& number, const std::string& description) {
        frmTOLMAIN main;
        bool hiddenUnderBox = false;
        person.onBox = [&](const Box&) {
            EXPECT_EQ(splash(), nullptr);
            hiddenUnderBox = !main.isVisible();
        };
        main.load();
        ASSERT_EQ(person.boxes.size(), 1U);
        EXPECT_EQ(person.boxes[0].title, "Error Loading Tolvane Module");
        EXPECT_EQ(person.boxes[0].text, "Error Loading Tolvane Module.\n\nError Number: " + number +
                                            "\nError Description: " + description);
        EXPECT_EQ(person.boxes[0].style, information);
        EXPECT_TRUE(hiddenUnderBox);
        EXPECT_TRUE(main.isVisible());
        EXPECT_TRUE(main.isLoaded());
        EXPECT_FALSE(main.findChild<QTimer*>("Timer1")->isActive());
        EXPECT_EQ(main.sNetPath, "");
    }

    // What the database interface itself says about NETPATH.
    [[nodiscard]] runtime::RuntimeError errorOfOpening() const {
        try {
            static_cast<void>(folder.paths());
        } catch (const runtime::RuntimeError& error) {
            return error;
        }
        ADD_FAILURE() << "NETPATH opens";
        return {0, ""};
    }
};

TEST_F(StartUpError, ADamagedDatabaseIsToldAndTheProgramStaysUp) {
    folder.write("NETPATH.MDB", "this is no database");
    const runtime::RuntimeError error = errorOfOpening();
    EXPECT_EQ(error.number(), runtime::errUnrecognisedFormat);
    expectBox("3343", error.description());
    EXPECT_EQ(folder.read("NETPATH.MDB"), "this is no database");
}

TEST_F(StartUpError, ATruncatedDatabaseIsTold) {
    folder.addPath("N:\\ZOV");
    folder.write("NETPATH.MDB", folder.read("NETPATH.MDB").substr(0, 1000));
    const runtime::RuntimeError error = errorOfOpening();
    expectBox(std::to_string(error.number()), error.description());
}

TEST_F(StartUpError, AMissingTableIsTold) {
    folder.remove("NETPATH.MDB");
    data::DBEngine::CreateWorkspace("wksTEST").CreateDatabase("NETPATH.MDB");
    const runtime::RuntimeError error = errorOfOpening();
    EXPECT_EQ(error.number(), runtime::errTableNotFound);
    expectBox("3078", error.description());
}

} // namespace
} // namespace tol::test
