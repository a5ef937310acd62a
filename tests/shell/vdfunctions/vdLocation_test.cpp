// SPDX-License-Identifier: MIT
#include "SharedRoutineTest.h"

#include "platform/System.h"
#include "runtime/Host.h"
#include "runtime/RuntimeError.h"
#include "shell/vdfunctions/vdLocation.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "support/Environment.h"

namespace tol::test {
namespace {

using namespace shell;
using runtime::MsgIcon;

class Location : public SharedRoutineTest {
  protected:
    void makeNetPath(const std::string& rows) const {
        make("NETPATH.MDB", "NETPATH", R"([{"name": "Path", "type": 10, "size": 255}])", "[]", rows);
    }
    void makeZovnet(const std::string& name) const { make(name, "MODULES", R"([{"name": "A", "type": 4}])"); }
    /// The one Path that is stored.
    std::string storedPath() {
        data::Database database = workspace.OpenDatabase("NETPATH.MDB");
        data::Recordset rows = database.OpenRecordset("NETPATH");
        EXPECT_EQ(rows.RecordCount(), 1);
        return vdNullCheckText(rows.Fields("Path"));
    }
    void expectCannotFind(const std::string& file) const {
        expectBox(
            MsgIcon::Critical, "Cannot Access",
            "Cannot Find the Database: " + file +
                "\n\nFind the correct location for ZOVNET.mdb and update your Network Database Location "
                "setting.");
    }
    [[nodiscard]] std::string hereWith(const std::string& name) const {
        return folder.path().string() + name;
    }
};

TEST_F(Location, StoredPathWithAndWithoutABackslash) {
    std::filesystem::create_directories(folder.driveC() / "net");
    makeZovnet("C:\\NET\\ZOVNET.MDB");
    makeNetPath(R"([[" C:\\NET "]])");
    EXPECT_EQ(vdNetPath("", false), "C:\\NET\\ZOVNET.MDB");
    std::filesystem::remove(folder / "NETPATH.MDB");
    makeNetPath(R"([["C:\\NET\\"]])");
    EXPECT_EQ(vdNetPath("", false), "C:\\NET\\ZOVNET.MDB");
    EXPECT_TRUE(person.boxes.empty());
}

TEST_F(Location, BlankRowIsFilledWithTheCurrentFolder) {
    for (const char* rows : {"[[null]]", R"([["  "]])", "[]"}) {
        makeNetPath(rows);
        makeZovnet("ZOVNET.MDB");
        EXPECT_EQ(vdNetPath("C:\\ELSEWHERE", false), hereWith("\\ZOVNET.MDB")) << rows;
        EXPECT_EQ(storedPath(), folder.path()) << rows;
        workspace.OpenDatabase(vdNetPath("", false));
        std::filesystem::remove(folder / "NETPATH.MDB");
        std::filesystem::remove(folder / "ZOVNET.MDB");
    }
    EXPECT_TRUE(person.boxes.empty());
}

TEST_F(Location, StoredPathTakesPriority) {
    std::filesystem::create_directories(folder.driveC() / "net");
    makeZovnet("C:\\NET\\ZOVNET.MDB");
    makeZovnet("ZOVNET.MDB");
    makeNetPath(R"([["C:\\NONE"]])");
    EXPECT_EQ(vdNetPath("C:\\NET", false), "ERROR");
    expectCannotFind("C:\\NONE\\ZOVNET.MDB");
    person.boxes.clear();
    EXPECT_EQ(vdNetPath("C:\\NET", true), " ");
    EXPECT_TRUE(person.boxes.empty());
}

TEST_F(Location, WithoutNetPathTheCallersFolderThenTheCurrentOne) {
    std::filesystem::create_directories(folder.driveC() / "net");
    makeZovnet("C:\\NET\\ZOVNET.MDB");
    EXPECT_EQ(vdNetPath("C:\\NET", false), "C:\\NET\\ZOVNET.MDB");
    makeZovnet("ZOVNET.MDB");
    EXPECT_EQ(vdNetPath("C:\\NET", false), "C:\\NET\\ZOVNET.MDB");
    EXPECT_EQ(vdNetPath("C:\\NONE", false), "ZOVNET.MDB");
    EXPECT_TRUE(person.boxes.empty());
}

TEST_F(Location, NowhereAtAll) {
    EXPECT_EQ(vdNetPath("C:\\NONE", true), " ");
    EXPECT_TRUE(person.boxes.empty());
    EXPECT_EQ(vdNetPath("C:\\NONE", false), "ERROR");
    expectCannotFind("");
}

TEST_F(Location, DamagedNetPathIsAProcessError) {
    folder.write("NETPATH.MDB", "no database at all");
    EXPECT_EQ(vdNetPath("", true), "ERROR");
    const auto open = [&] { workspace.OpenDatabase("NETPATH.MDB"); };
    expectBox(MsgIcon::Critical, "Error During Processing",
              "Error Encountered In Form: vdNetPath \nError: " + std::to_string(errorOf(open)) + "\n" +
                  descriptionOf(open));
}

TEST_F(Location, Dir) {
    folder.write("drives/c/Jobs/Main.mdb", "x");
    EXPECT_EQ(vdDir("C:\\JOBS\\MAIN.MDB"), "Main.mdb");
    EXPECT_EQ(vdDir("C:\\JOBS\\NONE.MDB"), "");
    EXPECT_EQ(vdDir("Q:\\JOBS\\NONE.MDB"), "");
}

TEST_F(Location, UserName) {
    const Environment login("LOGNAME", "ann");
    EXPECT_EQ(vdUserName(), "ann");
}

TEST_F(Location, UserNameFitsTheBufferOrIsGuest) {
    {
        const Environment login("LOGNAME", std::string(198, 'x').c_str());
        EXPECT_EQ(vdUserName(), std::string(198, 'x'));
    }
    const Environment login("LOGNAME", std::string(199, 'x').c_str());
    EXPECT_EQ(vdUserName(), "Guest");
}

TEST_F(Location, NoUserNameIsGuest) {
    platform::setLoginName([] { return std::string(); });
    EXPECT_EQ(vdUserName(), "Guest");
    platform::setLoginName({});
    EXPECT_TRUE(person.boxes.empty());
}

TEST_F(Location, FailureToReadTheUserName) {
    platform::setLoginName([]() -> std::string { runtime::raise(runtime::errInvalidCall); });
    EXPECT_EQ(vdUserName(), "Guest");
    platform::setLoginName({});
    expectBox(MsgIcon::None, "", "Error in Function vdUserName() 5 Invalid procedure call or argument");
}

} // namespace
} // namespace tol::test
