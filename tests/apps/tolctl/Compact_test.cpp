// SPDX-License-Identifier: MIT
#include "CaseFolder.h"

#include "data/DBEngine.h"
#include "data/sqlite/SqliteEngine.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace tol::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
namespace fs = std::filesystem;

class CompactTest : public testing::Test {
  protected:
    CompactTest() {
        Json rows = Json::array();
        for (int row = 0; row < 2000; ++row)
            rows.push_back(Json::array({row, std::string(200, 'x')}));
        Json table = tableOf("JOBS", Json::parse(R"([["TAG", 4, 4], ["NOTE", 10, 200]])"), rows);
        m_case.load("A.MDB", databaseOf({table}));
    }

    /// Another program of the suite that has the table open.
    data::Recordset use(data::Workspace& workspace, data::Database& database) const {
        static const bool added =
            (data::DBEngine::addEngine(std::make_unique<data::sqlite::SqliteEngine>()), true);
        (void)added;
        workspace = data::DBEngine::CreateWorkspace("wks");
        database = workspace.OpenDatabase(m_case.folder / "A.MDB");
        return database.OpenRecordset("JOBS");
    }

    CaseFolder m_case;
};

TEST_F(CompactTest, RemovesTheBytesOfDeletedFields) {
    const auto before = fs::file_size(m_case.folder / "A.MDB");
    {
        data::Workspace workspace;
        data::Database database;
        use(workspace, database).Close();
        database.TableDefs("JOBS").Fields().Delete("NOTE");
    }
    const std::string dump = m_case.run({"dump", "A.MDB"}).out;
    const Outcome outcome = m_case.run({"compact", "A.MDB"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(outcome.out, IsEmpty());
    EXPECT_THAT(outcome.err, HasSubstr(std::to_string(before) + " bytes before"));
    EXPECT_LT(fs::file_size(m_case.folder / "A.MDB"), before / 2);
    EXPECT_EQ(m_case.run({"dump", "A.MDB"}).out, dump);
}

TEST_F(CompactTest, FailsWhileSomebodyHasItOpen) {
    data::Workspace workspace;
    data::Database database;
    const data::Recordset rows = use(workspace, database);
    const Outcome outcome = m_case.run({"compact", "A.MDB"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, HasSubstr("(error 3045)"));
}

TEST_F(CompactTest, NeedsTheFile) {
    const Outcome outcome = m_case.run({"compact", "B.MDB"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, HasSubstr("B.MDB"));
}

} // namespace
} // namespace tol::test
