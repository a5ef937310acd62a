// SPDX-License-Identifier: MIT
// tolctl rights check, against the same questions as joins in the sqlite3 shell, both as whole processes.
// Usage: bench_rights [users]

#include "Ratio.h"
#include "UpdateFolder.h"
#include "WideTable.h"
#include "data/DBEngine.h"
#include "data/sqlite/SqliteEngine.h"
#include "demo/Demo.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/wait.h>

using namespace tol;
using namespace tol::bench;

namespace {

constexpr int itemCount = 500, templateCount = 20, itemsOfTemplate = 50, templatesOfUser = 2;

// Where the demo's users end; its own rows are among those that are checked.
constexpr int firstUser = 41, firstItem = 121, firstTemplate = 11;

constexpr const char* network = "drives/s/NET/ZOVNET.MDB";

constexpr const char* questions = R"(
SELECT 'right-without-item', r.* FROM USERRIGHTS r LEFT JOIN USERACCESSITEMS i ON i.UAITAG = r.UAITAG
  WHERE i.UAITAG IS NULL;
SELECT 'right-without-user', r.* FROM USERRIGHTS r LEFT JOIN USERLIST u ON u.USERTAG = r.USERTAG
  WHERE u.USERTAG IS NULL;
SELECT 'right-with-dead-template', r.* FROM USERRIGHTS r LEFT JOIN URTEMPLATES t ON t.URTTAG = r.URTTAG
  WHERE r.URTTAG <> 0 AND t.URTTAG IS NULL;
SELECT 'template-item-without-item', r.* FROM URTITEMS r LEFT JOIN USERACCESSITEMS i ON i.UAITAG = r.UAITAG
  WHERE i.UAITAG IS NULL;
SELECT 'template-item-without-template', r.* FROM URTITEMS r LEFT JOIN URTEMPLATES t ON t.URTTAG = r.URTTAG
  WHERE t.URTTAG IS NULL;
SELECT 'item-without-module', i.UAITAG FROM USERACCESSITEMS i
  LEFT JOIN MODULES m ON m.MODULEID = i.MODULEID COLLATE NOCASE WHERE m.MODULEID IS NULL;
SELECT 'doubled-right', USERTAG, UAITAG, coalesce(URTTAG, 0), count(*) FROM USERRIGHTS
  GROUP BY USERTAG, UAITAG, coalesce(URTTAG, 0) HAVING count(*) > 1;
SELECT 'doubled-template-item', URTTAG, UAITAG, count(*) FROM URTITEMS GROUP BY URTTAG, UAITAG
  HAVING count(*) > 1;
SELECT 'counter-too-low', 'UAITAG' FROM NETTAGS WHERE UAITAG <= max((SELECT max(UAITAG) FROM USERACCESSITEMS),
  (SELECT max(UAITAG) FROM URTITEMS), (SELECT max(UAITAG) FROM USERRIGHTS));
SELECT 'counter-too-low', 'URTTAG' FROM NETTAGS WHERE URTTAG <= max((SELECT max(URTTAG) FROM URTEMPLATES),
  (SELECT max(URTTAG) FROM URTITEMS), (SELECT max(URTTAG) FROM USERRIGHTS));
SELECT 'counter-too-low', 'USERTAG' FROM NETTAGS WHERE USERTAG <= max((SELECT max(USERTAG) FROM USERLIST),
  (SELECT max(USERTAG) FROM USERRIGHTS), (SELECT max(USERTAG) FROM RECORDLOCKS));
SELECT 'unknown-module-selected', s.MODULEID FROM NETSETTINGS s
  LEFT JOIN MODULES m ON m.MODULEID = s.MODULEID COLLATE NOCASE WHERE m.MODULEID IS NULL;
)";

using Row = std::vector<runtime::Value>;

void add(data::Recordset& rows, const Row& values) {
    rows.AddNew();
    for (std::size_t i = 0; i < values.size(); ++i)
        rows.Fields(static_cast<int>(i)).Value(values[i]);
    rows.Update();
}

void addItemsAndTemplates(data::Database& database) {
    data::Recordset items = database.OpenRecordset("USERACCESSITEMS");
    for (int tag = firstItem; tag <= itemCount; ++tag)
        add(items, {tag, "ORV", fmt::format("ITEM{}", tag), fmt::format("Item {}", tag), ""});
    data::Recordset templates = database.OpenRecordset("URTEMPLATES");
    data::Recordset templateItems = database.OpenRecordset("URTITEMS");
    for (int tag = firstTemplate; tag <= templateCount; ++tag) {
        add(templates, {tag, fmt::format("URT{}", tag), fmt::format("Template {}", tag)});
        for (int item = 0; item < itemsOfTemplate; ++item)
            add(templateItems, {tag, firstItem + (tag * 7 + item) % (itemCount - firstItem), item % 3 != 0});
    }
}

/// Users with a hundred rights each.
void addUsers(data::Database& database, int count) {
    data::Recordset users = database.OpenRecordset("USERLIST");
    data::Recordset rights = database.OpenRecordset("USERRIGHTS");
    for (int user = firstUser; user <= count; ++user) {
        add(users, {user, fmt::format("user{}", user), "", false});
        for (int filled = 0; filled < templatesOfUser; ++filled) {
            const int tag = firstTemplate + (user + filled) % (templateCount - firstTemplate);
            for (int item = 0; item < itemsOfTemplate; ++item)
                add(rights,
                    {user, firstItem + (tag * 7 + item) % (itemCount - firstItem), item % 3 != 0, tag});
        }
    }
}

void enlarge(int users) {
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksBENCH");
    data::Database database = workspace.OpenDatabase(network);
    workspace.BeginTrans();
    addItemsAndTemplates(database);
    addUsers(database, users);
    data::Recordset tags = database.OpenRecordset("NETTAGS");
    tags.Edit();
    tags.Fields("UAITAG").Value(itemCount + 1);
    tags.Fields("URTTAG").Value(templateCount + 1);
    tags.Fields("USERTAG").Value(users + 1);
    tags.Update();
    workspace.CommitTrans();
}

/// One finding of every tenth user, so that both sides have something to tell.
void damage(int users) {
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksBENCH");
    data::Database database = workspace.OpenDatabase(network);
    data::Recordset rights = database.OpenRecordset("USERRIGHTS");
    for (int user = 1; user <= users; user += 10)
        add(rights, {user, -1, true, 0});
}

void run(const char* command, int status) {
    const int ended = std::system(command);
    if (!WIFEXITED(ended) || WEXITSTATUS(ended) != status) {
        fmt::print(stderr, "{}: unexpected status\n", command);
        std::exit(1);
    }
}

std::size_t linesOf(const char* file) {
    std::ifstream text(file);
    std::size_t count = 0;
    for (std::string line; std::getline(text, line);)
        ++count;
    return count;
}

constexpr const char* check = TOL_CTL_PROGRAM " rights check >ours.txt";
const std::string joins = fmt::format("sqlite3 {} <questions.sql >theirs.txt", network);

/// The heading is ours alone.
void requireSameFindings() {
    if (linesOf("ours.txt") == linesOf("theirs.txt") + 1)
        return;
    fmt::print(stderr, "the two found {} and {}\n", linesOf("ours.txt"), linesOf("theirs.txt"));
    std::exit(1);
}

} // namespace

int main(int argc, char** argv) {
    data::DBEngine::addEngine(std::make_unique<data::sqlite::SqliteEngine>());
    SilentHost host;
    runtime::HostScope scope(host);
    const int users = argc > 1 ? std::atoi(argv[1]) : 2000;
    BenchFolder folder;
    demo::makeDemo("demo");
    std::filesystem::current_path("demo");
    enlarge(users);
    std::ofstream("questions.sql") << questions;

    const std::string name = fmt::format("rights check, {} users", users);
    ratio(
        name + ", no finding", 15, [] { run(check, 0); }, [] { run(joins.c_str(), 0); });
    requireSameFindings();
    damage(users);
    ratio(
        name + ", some findings", 15, [] { run(check, 5); }, [] { run(joins.c_str(), 0); });
    requireSameFindings();
}
