// SPDX-License-Identifier: MIT
#include "platform/Folders.h"

#include "support/Environment.h"
#include "support/Raises.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

namespace fs = std::filesystem;
using namespace platform;
using testing::ElementsAre;
using testing::IsEmpty;

class Folders : public testing::Test {
  protected:
    Environment noDrives{"TOL_DRIVES", nullptr};
    TempFolder folder;
};

TEST_F(Folders, DrivesAreLettersSharesAndTheHost) {
    fs::create_directories(folder / "drives/unc/server/Jobs");
    fs::create_directories(folder / "drives/unc/server/Other");
    fs::create_directories(folder / "drives/D");
    fs::create_directories(folder / "drives/d");
    fs::create_directories(folder / "drives/notes");
    fs::create_directory_symlink(folder / "gone", folder / "drives/q");
    folder.write("drives/1", "");
    EXPECT_THAT(drives(), ElementsAre("C:", "D:", "Q:", "\\\\server\\Jobs", "\\\\server\\Other", "/"));
}

TEST_F(Folders, WithoutAFolderOfDrivesThereIsTheHost) {
    const Environment elsewhere("TOL_DRIVES", (folder / "none").c_str());
    EXPECT_THAT(drives(), ElementsAre("/"));
}

TEST_F(Folders, APathLiesOnADrive) {
    EXPECT_EQ(driveOf("c:\\Jobs"), "C:");
    EXPECT_EQ(driveOf("C:"), "C:");
    EXPECT_EQ(driveOf("\\\\SERVER\\Jobs\\North"), "\\\\SERVER\\Jobs");
    EXPECT_EQ(driveOf("//server/jobs"), "\\\\server\\jobs");
    EXPECT_EQ(driveOf("/srv/jobs"), "/");
    EXPECT_EQ(driveOf("jobs"), "/");
    EXPECT_EQ(driveOf("///srv"), "/");
}

TEST_F(Folders, AChainLeadsDownFromTheRoot) {
    EXPECT_THAT(folderChain("c:\\Jobs\\North\\"), ElementsAre("C:\\", "C:\\Jobs", "C:\\Jobs\\North"));
    EXPECT_THAT(folderChain("C:"), ElementsAre("C:\\"));
    EXPECT_THAT(folderChain("\\\\S\\Jobs\\North"), ElementsAre("\\\\S\\Jobs", "\\\\S\\Jobs\\North"));
    EXPECT_THAT(folderChain("/srv//./jobs"), ElementsAre("/", "/srv", "/srv/jobs"));
    EXPECT_THAT(folderChain("/"), ElementsAre("/"));
    EXPECT_EQ(folderChain("jobs").back(), (folder / "jobs").string());
}

TEST_F(Folders, AFolderIsCalledByItsLastName) {
    EXPECT_EQ(folderName("C:\\Jobs\\North"), "North");
    EXPECT_EQ(folderName("C:\\"), "C:\\");
    EXPECT_EQ(folderName("/srv/jobs/"), "jobs");
    EXPECT_EQ(folderName("/"), "/");
    EXPECT_EQ(folderName("\\\\S\\Jobs"), "\\\\S\\Jobs");
}

TEST_F(Folders, AnEntrysPathHasTheSeparatorOfItsDrive) {
    EXPECT_EQ(inFolder("C:\\", "Jobs"), "C:\\Jobs");
    EXPECT_EQ(inFolder("C:\\Jobs", "North"), "C:\\Jobs\\North");
    EXPECT_EQ(inFolder("/", "srv"), "/srv");
    EXPECT_EQ(inFolder("/srv", "jobs"), "/srv/jobs");
}

TEST_F(Folders, FoldersAndFilesAreToldInOrderWithoutRegardToCase) {
    for (const char* name : {"b.mdb", "A.MDB", "c.Mdb", "d.txt", "mdb", ".hidden.mdb", "a\\b.mdb"})
        folder.write(std::string("drives/c/x/") + name, "");
    for (const char* name : {"Two", "one", "three.mdb", ".hidden"})
        fs::create_directories(folder.driveC() / "x" / name);
    fs::create_directory_symlink(folder.driveC() / "x" / "one", folder.driveC() / "x" / "link");
    EXPECT_THAT(filesIn("C:\\X", "*.mdb"), ElementsAre("A.MDB", "b.mdb", "c.Mdb"));
    EXPECT_THAT(filesIn("C:\\X", "*.TXT"), ElementsAre("d.txt"));
    EXPECT_THAT(filesIn("C:\\X", "*x*b"), IsEmpty());
    EXPECT_THAT(filesIn("C:\\X", "*m*b"), ElementsAre("A.MDB", "b.mdb", "c.Mdb", "mdb"));
    EXPECT_THAT(filesIn("C:\\X", "d.txt"), ElementsAre("d.txt"));
    EXPECT_THAT(filesIn("C:\\X", ""), IsEmpty());
    EXPECT_THAT(foldersIn("c:/x"), ElementsAre("link", "one", "three.mdb", "Two"));
}

TEST_F(Folders, AMissingFolderIsAnError) {
    EXPECT_EQ(errorOf([] { foldersIn("C:\\GONE"); }), 76);
    EXPECT_EQ(errorOf([] { foldersIn("Q:\\"); }), 76);
    EXPECT_EQ(errorOf([] { filesIn("/nowhere/at/all", "*"); }), 76);
    fs::create_directory_symlink(folder / "gone", folder / "drives/q");
    EXPECT_EQ(errorOf([] { foldersIn("Q:\\"); }), 76);
    folder.write("drives/c/file", "");
    EXPECT_EQ(errorOf([] { foldersIn("C:\\FILE"); }), 75);
}

} // namespace
} // namespace tol::test
