// SPDX-License-Identifier: MIT
#include "platform/Paths.h"

#include "runtime/Text.h"
#include "support/Environment.h"
#include "support/Raises.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace tol::test {
namespace {

namespace fs = std::filesystem;
using namespace platform;
using testing::HasSubstr;

class Paths : public testing::Test {
  protected:
    Environment noDrives{"TOL_DRIVES", nullptr};
    TempFolder folder;

    [[nodiscard]] std::string here(std::string_view below) const { return (folder / below).string(); }
};

TEST_F(Paths, DriveLettersLieInTheFolderOfDrives) {
    folder.write("drives/c/Jobs/North/Main.MDB", "x");
    const fs::path file = folder.driveC() / "Jobs" / "North" / "Main.MDB";
    for (const char* text :
         {"C:\\Jobs\\North\\Main.MDB", "c:\\JOBS\\NORTH\\MAIN.MDB", "C:/jobs/north/main.mdb",
          "C:\\JOBS/north\\\\.\\Main.MDB", "C:Jobs\\North\\Main.MDB", "C:\\Jobs\\North\\Main.MDB\\"})
        EXPECT_EQ(hostPath(text), file) << text;
    EXPECT_EQ(hostPath("C:\\"), folder.driveC());
    EXPECT_EQ(hostPath("C:"), folder.driveC());
    EXPECT_EQ(dir("C:\\JOBS\\NORTH\\MAIN.MDB"), "Main.MDB");
}

TEST_F(Paths, ADriveMayBeAnUpperCaseEntryOrALink) {
    folder.write("elsewhere/x.mdb", "x");
    fs::create_directory_symlink(folder / "elsewhere", folder / "drives/D");
    EXPECT_EQ(dir("d:\\X.MDB"), "x.mdb");
    EXPECT_EQ(hostPath("D:\\X.MDB"), folder / "drives/D/x.mdb");
}

TEST_F(Paths, MissingDriveNamesTheFolderOfDrives) {
    const auto look = [] { hostPath("Q:\\X.MDB"); };
    EXPECT_EQ(errorOf(look), 76);
    EXPECT_EQ(descriptionOf(look),
              "Path not found: there is no drive 'Q:' in the folder of drives '" + here("drives") + "'.");
    EXPECT_EQ(dir("Q:\\X.MDB"), "");
    EXPECT_EQ(errorOf([] { hostPath("Q:"); }), 76);
}

TEST_F(Paths, TellsWhichFolderOrDriveIsNotThere) {
    folder.write("drives/c/Jobs/North/Main.MDB", "x");
    using platform::missingFolder;
    EXPECT_EQ(missingFolder("C:\\JOBS\\NORTH\\MAIN.MDB"), "");
    EXPECT_EQ(missingFolder("C:\\JOBS\\NORTH\\OTHER.MDB"), "");
    EXPECT_EQ(missingFolder("C:\\OTHER.MDB"), "");
    EXPECT_EQ(missingFolder("OTHER.MDB"), "");
    EXPECT_EQ(missingFolder("C:\\JOBS\\SOUTH\\MAIN.MDB"), "C:\\JOBS\\SOUTH");
    EXPECT_EQ(missingFolder("C:\\JOBS\\NORTH\\MAIN.MDB\\X.MDB"), "C:\\JOBS\\NORTH\\MAIN.MDB");
    EXPECT_EQ(missingFolder("q:\\JOBS\\MAIN.MDB"), "Q:");
    EXPECT_EQ(missingFolder("\\\\SERVER\\OTHER\\X\\MAIN.MDB"), "\\\\SERVER\\OTHER");
    EXPECT_EQ(missingFolder(here("srv") + "/x.mdb"), here("srv"));
}

TEST_F(Paths, SharesLieUnderUnc) {
    folder.write("drives/unc/server/Jobs/x/MAIN.mdb", "x");
    EXPECT_EQ(hostPath("\\\\SERVER\\JOBS\\X\\MAIN.MDB"), folder / "drives/unc/server/Jobs/x/MAIN.mdb");
    EXPECT_EQ(dir("//server/jobs/x/main.mdb"), "MAIN.mdb");
    EXPECT_EQ(dir("\\\\SERVER\\OTHER\\MAIN.MDB"), "");
    const auto look = [] { hostPath("\\\\SERVER\\OTHER\\MAIN.MDB"); };
    EXPECT_EQ(errorOf(look), 76);
    EXPECT_THAT(descriptionOf(look), HasSubstr("'\\\\SERVER\\OTHER'"));
    EXPECT_THAT(descriptionOf(look), HasSubstr(here("drives")));
}

TEST_F(Paths, HostPathsInAnyCaseAndWithEitherSeparator) {
    folder.write("srv/Jobs/north.mdb", "x");
    const std::string exact = here("srv/Jobs/north.mdb");
    EXPECT_EQ(hostPath(exact), exact);
    EXPECT_EQ(hostPath(runtime::upperCase(exact)), exact);
    std::string backslashes = runtime::upperCase(exact);
    std::replace(backslashes.begin(), backslashes.end(), '/', '\\');
    EXPECT_EQ(hostPath(backslashes), exact);
    EXPECT_EQ(dir(backslashes), "north.mdb");
    EXPECT_EQ(hostPath("/"), "/");
    EXPECT_EQ(hostPath("/\\X-THAT-IS-NOT-THERE.MDB"), "/X-THAT-IS-NOT-THERE.MDB") << "no share name";
}

TEST_F(Paths, AFileIsFoundByItsNameInUpperCase) {
    for (const char* name : {"Straße", "ıi", "İ", "ſ", "µm", "ǆ", "\u212A", "ᾳ"}) {
        folder.write(std::string(name) + ".mdb", "x");
        EXPECT_EQ(dir(here(runtime::upperCase(name) + ".MDB")), std::string(name) + ".mdb");
        fs::remove(folder / (std::string(name) + ".mdb"));
    }
    folder.write("Strasse.mdb", "x");
    EXPECT_EQ(dir(here("STRAßE.MDB")), "");
    folder.write("a\u212A.mdb", "x");
    EXPECT_EQ(dir(here("Ak.MDB")), "a\u212A.mdb") << "in whichever case the name was written down";
}

TEST_F(Paths, BareNamesLieInTheCurrentFolder) {
    folder.write("netpath.MDB", "x");
    EXPECT_EQ(hostPath("NETPATH.MDB"), folder / "netpath.MDB");
    EXPECT_EQ(dir("NETPATH.MDB"), "netpath.MDB");
    EXPECT_EQ(hostPath("New.mdb"), folder / "New.mdb");
    EXPECT_EQ(hostPath("..\\Other\\New.mdb"), folder / "../Other/New.mdb");
    EXPECT_EQ(hostPath(""), folder.path());
}

TEST_F(Paths, MissingNamesKeepTheirSpelling) {
    fs::create_directories(folder.driveC() / "jobs");
    EXPECT_EQ(hostPath("C:\\JOBS\\New Folder\\New.MDB"), folder.driveC() / "jobs/New Folder/New.MDB");
}

TEST_F(Paths, FindsLettersBeyondAscii) {
    folder.write("drives/c/straße/Größe.mdb", "x");
    EXPECT_EQ(dir("C:\\STRAßE\\GRÖßE.MDB"), "Größe.mdb");
    EXPECT_EQ(dir("C:\\STRASE\\GRÖSSE.MDB"), "");
    EXPECT_EQ(dir("C:\\STRASSE\\GROSSE.MDB"), "");
}

TEST_F(Paths, TheExactSpellingWins) {
    folder.write("drives/c/Main.mdb", "x");
    folder.write("drives/c/MAIN.MDB", "x");
    EXPECT_EQ(dir("C:\\Main.mdb"), "Main.mdb");
    EXPECT_EQ(dir("C:\\MAIN.MDB"), "MAIN.MDB");
}

TEST_F(Paths, TwoSpellingsWithoutAnExactOneAreAnErrorThatNamesBoth) {
    folder.write("drives/c/Main.mdb", "x");
    folder.write("drives/c/MAIN.MDB", "x");
    const auto look = [] { hostPath("C:\\main.MDB"); };
    EXPECT_EQ(errorOf(look), 75);
    EXPECT_THAT(descriptionOf(look), HasSubstr((folder.driveC() / "Main.mdb").string()));
    EXPECT_THAT(descriptionOf(look), HasSubstr((folder.driveC() / "MAIN.MDB").string()));
    EXPECT_EQ(errorOf([] { dir("C:\\main.MDB"); }), 75);
}

TEST_F(Paths, DirFindsFilesOnly) {
    fs::create_directories(folder.driveC() / "jobs");
    EXPECT_EQ(dir("C:\\JOBS"), "");
    EXPECT_EQ(dir("C:\\jobs"), "");
    EXPECT_EQ(dir("C:\\"), "");
    EXPECT_EQ(dir(""), "");
    EXPECT_EQ(dir("C:\\jobs\\none.mdb"), "");
    EXPECT_EQ(dir("C:\\none\\none.mdb"), "");
    folder.write("drives/c/file", "x");
    EXPECT_EQ(dir("C:\\FILE\\none.mdb"), "") << "a file is no folder";
}

TEST_F(Paths, ANameWithANulIsNoPath) {
    folder.write("a", "x");
    EXPECT_EQ(errorOf([] { hostPath(std::string_view("a\0b", 3)); }), 75);
}

TEST_F(Paths, CurrentFolder) {
    EXPECT_EQ(currentFolder(), folder.path());
    fs::current_path("/");
    EXPECT_EQ(currentFolder(), "/");
    fs::create_directory(folder / "gone");
    fs::current_path(folder / "gone");
    fs::remove(folder / "gone");
    EXPECT_EQ(errorOf([] { currentFolder(); }), 76);
}

TEST_F(Paths, FolderOfDrives) {
    EXPECT_EQ(drivesFolder(), folder / "drives");
    {
        const Environment variable("TOL_DRIVES", "/mnt/drives");
        EXPECT_EQ(drivesFolder(), "/mnt/drives");
    }
    {
        const Environment variable("TOL_DRIVES", "mine");
        EXPECT_EQ(drivesFolder(), folder / "mine");
    }
    fs::remove_all(folder / "drives");
    const Environment home("HOME", "/home/ann");
    {
        const Environment data("XDG_DATA_HOME", nullptr);
        EXPECT_EQ(drivesFolder(), "/home/ann/.local/share/tolvane/drives");
    }
    const Environment data("XDG_DATA_HOME", "/data");
    EXPECT_EQ(drivesFolder(), "/data/tolvane/drives");
    const Environment relative("XDG_DATA_HOME", "data"); // not valid, so passed over
    EXPECT_EQ(drivesFolder(), "/home/ann/.local/share/tolvane/drives");
    const Environment homeless("HOME", nullptr);
    EXPECT_TRUE(drivesFolder().is_absolute());
}

TEST_F(Paths, JoinsWithOneBackslash) {
    EXPECT_EQ(join("C:\\JOBS", "X.MDB"), "C:\\JOBS\\X.MDB");
    EXPECT_EQ(join("C:\\JOBS\\", "X.MDB"), "C:\\JOBS\\X.MDB");
    EXPECT_EQ(join("/srv/", "X.MDB"), "/srv/X.MDB");
    EXPECT_EQ(join("", "X.MDB"), "X.MDB");
}

TEST_F(Paths, PutsAFileBelowALocationAsItStands) {
    EXPECT_EQ(below("C:\\JOBS", "X.MDB"), "C:\\JOBS\\X.MDB");
    EXPECT_EQ(below("C:\\", "X.MDB"), "C:\\\\X.MDB");
    EXPECT_EQ(below("", "X.MDB"), "\\X.MDB");
}

TEST_F(Paths, CutsOneBackslash) {
    EXPECT_EQ(withoutBackslash("C:\\JOBS\\"), "C:\\JOBS");
    EXPECT_EQ(withoutBackslash("C:\\JOBS\\\\"), "C:\\JOBS\\");
    EXPECT_EQ(withoutBackslash("/srv/"), "/srv/");
    EXPECT_EQ(withoutBackslash(""), "");
}

} // namespace
} // namespace tol::test
