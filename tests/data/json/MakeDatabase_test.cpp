// SPDX-License-Identifier: MIT
#include "JsonTest.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using namespace tol::data;
namespace fs = std::filesystem;

class MakeDatabaseTest : public JsonTest {
  protected:
    static constexpr std::string_view empty = R"({"tables": []})";

    std::vector<std::string> names(const fs::path& folder) const {
        std::vector<std::string> found;
        for (const auto& entry : fs::directory_iterator(folder))
            found.push_back(entry.path().filename());
        return found;
    }
};

TEST_F(MakeDatabaseTest, LeavesNothingBesideTheFile) {
    make(empty);
    EXPECT_THAT(names(m_folder.path()), testing::UnorderedElementsAre("drives", "X.MDB"));
}

TEST_F(MakeDatabaseTest, NeverTouchesAFileThatExists) {
    m_folder.write("X.MDB", "mine");
    EXPECT_EQ(errorOf([&] { make(empty); }), runtime::errDatabaseExists);
    EXPECT_EQ(complaint(empty), "Database '" + (m_folder / "X.MDB").string() + "' already exists.");
    EXPECT_EQ(m_folder.read("X.MDB"), "mine");
}

TEST_F(MakeDatabaseTest, FindsTheFileInAnotherCase) {
    m_folder.write("x.mdb", "mine");
    EXPECT_EQ(errorOf([&] { make(empty); }), runtime::errDatabaseExists);
}

TEST_F(MakeDatabaseTest, RefusesALinkThatLeadsNowhere) {
    fs::create_symlink("nowhere", m_folder / "X.MDB");
    EXPECT_EQ(errorOf([&] { make(empty); }), runtime::errDatabaseExists);
}

TEST_F(MakeDatabaseTest, MakesFilesOnDrives) {
    fs::create_directory(m_folder.driveC() / "jobs");
    make(empty, "C:\\JOBS\\NEW.MDB");
    EXPECT_TRUE(fs::exists(m_folder.driveC() / "jobs" / "NEW.MDB"));
}

TEST_F(MakeDatabaseTest, NeedsTheFolder) {
    EXPECT_EQ(errorOf([&] { make(empty, "nowhere/X.MDB"); }), runtime::errInvalidPath);
}

// Another process makes the same file meanwhile: the first one to be complete stays.
TEST_F(MakeDatabaseTest, DoesNotReplaceAFileThatCameMeanwhile) {
    std::istringstream in(R"({"tables": [{"name": "T", "fields": [], "rows": [[]]}]})");
    const auto interfere = [&](const json::RowProgress&) { m_folder.write("X.MDB", "mine"); };
    EXPECT_EQ(errorOf([&] { json::makeDatabase("X.MDB", in, interfere); }), runtime::errDatabaseExists);
    EXPECT_EQ(m_folder.read("X.MDB"), "mine");
    EXPECT_THAT(names(m_folder.path()), testing::UnorderedElementsAre("drives", "X.MDB"));
}

TEST_F(MakeDatabaseTest, LeavesNothingWhenItsWatcherBreaksOff) {
    std::istringstream in(R"({"tables": [{"name": "T", "fields": [], "rows": [[]]}]})");
    EXPECT_THROW(json::makeDatabase("X.MDB", in, [](const json::RowProgress&) { throw 1; }), int);
    EXPECT_THAT(names(m_folder.path()), testing::ElementsAre("drives"));
}

} // namespace
} // namespace tol::test
