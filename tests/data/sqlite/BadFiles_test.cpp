// SPDX-License-Identifier: MIT
#include "EngineTest.h"
#include "ForeignFilesTest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

namespace tol::test {

using namespace data;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

/// Files that can't be opened, through the whole interface: what is raised, and that nothing happens.
class BadFiles : public ForeignFilesTest {
  protected:
    void expectRefused(int number) {
        const auto before = entries();
        const runtime::RuntimeError error = errorOf([this] { open(); });
        EXPECT_EQ(error.number(), number) << error.description();
        EXPECT_THAT(error.description(), HasSubstr(file.path().native()));
        EXPECT_EQ(entries(), before);
    }

    void expectRefused(const std::string& bytes, int number) {
        folder.write("OTHER.DB", bytes);
        expectRefused(number);
        EXPECT_EQ(folder.read("OTHER.DB"), bytes);
    }

    [[nodiscard]] std::vector<std::string> entries() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
            names.push_back(entry.path().filename());
        std::ranges::sort(names);
        return names;
    }

    /// A small database's bytes.
    std::string goodBytes() {
        file.run("PRAGMA page_size = 512; CREATE TABLE t(a TEXT, b TEXT); CREATE INDEX i ON t(a);"
                 "WITH RECURSIVE n(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM n WHERE x < 200)"
                 "INSERT INTO t SELECT x, hex(zeroblob(40)) FROM n");
        return folder.read("OTHER.DB");
    }
};

/// Acts as somebody who may not do everything.
class OrdinaryUser {
  public:
    OrdinaryUser() {
        constexpr uid_t nobody = 65534;
        if (m_user == 0 && seteuid(nobody) != 0)
            throw std::runtime_error("the user can't be changed");
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    ~OrdinaryUser() {
        if (m_user == 0 && seteuid(m_user) != 0)
            std::abort();
    }

  private:
    uid_t m_user = geteuid();
};

} // namespace

TEST_F(BadFiles, AreNamedWhenTheyAreMissing) {
    expectRefused(3024);
}

TEST_F(BadFiles, AreNamedWhenAFolderStandsInTheirPlace) {
    std::filesystem::create_directory(file.path());
    expectRefused(3051);
}

TEST_F(BadFiles, AreRefusedWhenEmptyOrOfAnotherKind) {
    expectRefused("", 3343);
    expectRefused("not a database", 3343);
    expectRefused(std::string(8192, '\0'), 3343);
}

TEST_F(BadFiles, AreRefusedWhenTruncated) {
    const std::string bytes = goodBytes();
    for (const std::size_t length :
         {std::size_t{16}, std::size_t{99}, std::size_t{512}, bytes.size() / 2, bytes.size() - 1})
        expectRefused(bytes.substr(0, length), 3049);
}

TEST_F(BadFiles, AreRefusedWhenTheirTablesCannotBeRead) {
    std::string bytes = goodBytes();
    std::fill(bytes.begin() + 100, bytes.begin() + 512, '\xA5');
    expectRefused(bytes, 3049);
}

TEST_F(BadFiles, AreRefusedWhenALaterReleaseMadeThem) {
    file.run("CREATE TABLE t(a); PRAGMA application_id = 0x546F6C76; PRAGMA user_version = 2");
    expectRefused(folder.read("OTHER.DB"), 3343);
}

TEST_F(BadFiles, TellOfDamageWhereItIsMet) {
    std::string bytes = goodBytes();
    std::fill(bytes.begin() + 2048, bytes.end(), '\xA5');
    folder.write("OTHER.DB", bytes);
    open();
    const runtime::RuntimeError error = errorOf([this] {
        Recordset rows = database.OpenRecordset("t");
        walk(rows);
    });
    EXPECT_EQ(error.number(), 3049);
    EXPECT_THAT(error.description(), HasSubstr(file.path().native()));
    database.Close();
    EXPECT_EQ(folder.read("OTHER.DB"), bytes);
}

TEST_F(BadFiles, AreNamedWhenTheyMayNotBeRead) {
    goodBytes();
    ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);
    ASSERT_EQ(chmod(file.path().c_str(), 0), 0);
    const OrdinaryUser user;
    expectRefused(3051);
}

TEST_F(BadFiles, CanBeReadWhereNothingMayBeWritten) {
    const std::string bytes = goodBytes();
    ASSERT_EQ(chmod(folder.path().c_str(), 0555), 0);
    ASSERT_EQ(chmod(file.path().c_str(), 0444), 0);
    {
        const OrdinaryUser user;
        open();
        Recordset rows = database.OpenRecordset("t");
        EXPECT_EQ(rows.RecordCount(), 200);
        for (const runtime::RuntimeError& error :
             {errorOf([&] { set(rows, "a", "new"); }), errorOf([&] { rows.Delete(); })}) {
            EXPECT_EQ(error.number(), 3027);
            EXPECT_THAT(error.description(), HasSubstr(file.path().native()));
        }
        rows.Close();
        EXPECT_EQ(errorOf([&] { database.TableDefs("t").Indexes().Delete("i"); }).number(), 3027);
        database.Close();
    }
    ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);
    EXPECT_EQ(folder.read("OTHER.DB"), bytes);
    EXPECT_THAT(entries(), ElementsAre("OTHER.DB", "drives"));
}

} // namespace tol::test
