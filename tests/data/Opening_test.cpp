// SPDX-License-Identifier: MIT
#include "DataTest.h"

#include "support/SecondProcess.h"

#include <sys/stat.h>
#include <unistd.h>

#include <stdexcept>

using namespace tol::data;
using namespace tol::test;
using namespace std::string_literals;
namespace fs = std::filesystem;

namespace {

constexpr const char* invalid = "3420 Object invalid or no longer set.";
constexpr const char* notSet = "91 Object variable not set";

class Opening : public DataTest {
  protected:
    std::string opened(const std::string& name) {
        return raised([&] { return workspace.OpenDatabase(name); });
    }
    std::string path(std::string_view name) const { return (folder / name).string(); }

    /// Opening fails with that error, and leaves the file's bytes alone.
    void expectRefused(const std::string& name, const std::string& content, const std::string& error) {
        folder.write(name, content);
        EXPECT_EQ(opened(name), error);
        EXPECT_EQ(raised([&] { return workspace.OpenDatabase(name, false, true); }), error);
        EXPECT_EQ(folder.read(name), content);
    }
};

} // namespace

TEST_P(Opening, FindsABareNameInTheCurrentFolder) {
    EXPECT_EQ(database.Name(), path("TEST.MDB"));
    Database again = workspace.OpenDatabase("test.mdb"); // as the suite's texts are folded
    EXPECT_EQ(again.Name(), path("TEST.MDB"));
    again.Close();
    database.Close();
    fs::create_directory("SITES");
    fs::rename("TEST.MDB", "SITES/TEST.MDB");
    EXPECT_EQ(workspace.OpenDatabase(R"(sites\test.mdb)").Name(), path("SITES/TEST.MDB"));
    fs::rename("SITES/TEST.MDB", folder.driveC() / "test.mdb");
    EXPECT_EQ(workspace.OpenDatabase(R"(C:\TEST.MDB)").Name(), (folder.driveC() / "test.mdb").string());
}

TEST_P(Opening, MissingFileIsNamed) {
    EXPECT_EQ(opened("NONE.MDB"), "3024 Could not find file '" + path("NONE.MDB") + "'.");
    EXPECT_EQ(opened(R"(C:\NONE.MDB)"),
              "3024 Could not find file '" + (folder.driveC() / "NONE.MDB").string() + "'.");
    EXPECT_FALSE(fs::exists("NONE.MDB"));
    EXPECT_EQ(opened(R"(C:\NO\WHERE.MDB)"),
              "3044 '" + (folder.driveC() / "NO/WHERE.MDB").string() + "' is not a valid path.");
    folder.write("FILE", "x");
    EXPECT_EQ(opened("FILE/X.MDB"), "3044 '" + path("FILE/X.MDB") + "' is not a valid path.");
    EXPECT_EQ(opened(R"(Q:\X.MDB)").substr(0, 3), "76 ");
}

TEST_P(Opening, WhatIsNoFileIsRefused) {
    fs::create_directory("FOLDER.MDB");
    EXPECT_EQ(opened("FOLDER.MDB"), "3051 Cannot open or write to the file '" + path("FOLDER.MDB") +
                                        "': no permission, or opened exclusively by another user.");
    ASSERT_EQ(mkfifo("PIPE.MDB", 0600), 0); // would wait for a writer
    EXPECT_EQ(opened("PIPE.MDB"), "3343 Unrecognized database format '" + path("PIPE.MDB") + "'.");
    fs::create_symlink("LOOP.MDB", "LOOP.MDB");
    EXPECT_EQ(opened("LOOP.MDB").substr(0, 4), "3044");
}

TEST_P(Opening, ForeignFileIsRefusedAndLeftAlone) {
    const auto error = [&](const std::string& name) {
        return "3343 Unrecognized database format '" + path(name) + "'.";
    };
    expectRefused("EMPTY.MDB", "", error("EMPTY.MDB"));
    expectRefused("ONE.MDB", "x", error("ONE.MDB"));
    expectRefused("TEXT.MDB", "Not a database, but a letter to somebody.\n", error("TEXT.MDB"));
    expectRefused("ZEROS.MDB", std::string(8192, '\0'), error("ZEROS.MDB"));
    expectRefused("OTHER.MDB", "\0\1\0\0Some other kind of file\0\0"s + std::string(4096, 'x'),
                  error("OTHER.MDB"));
}

TEST_P(Opening, DamagedFileIsRefusedAndLeftAlone) {
    make("T", {field("A", dbLong)});
    database.Close();
    const std::string whole = folder.read("TEST.MDB");
    for (const std::size_t length : {20U, 90U, 1000U, 5000U}) {
        folder.write("CUT.MDB", whole.substr(0, length));
        const std::string error = opened("CUT.MDB");
        EXPECT_TRUE(error.starts_with("3343") || error.starts_with("3049")) << length << ": " << error;
        EXPECT_NE(error.find(path("CUT.MDB")), std::string::npos) << error;
        EXPECT_EQ(folder.read("CUT.MDB"), whole.substr(0, length));
    }
    std::string scrambled = whole;
    for (std::size_t i = 100; i < scrambled.size(); ++i)
        scrambled[i] = static_cast<char>(scrambled[i] ^ 0x5a);
    folder.write("BAD.MDB", scrambled);
    const std::string error = opened("BAD.MDB");
    EXPECT_TRUE(error.starts_with("3343") || error.starts_with("3049")) << error;
    EXPECT_EQ(folder.read("BAD.MDB"), scrambled);
}

TEST_P(Opening, PermissionIsNeeded) {
    make("T", {field("A", dbLong)});
    database.Close();
    fs::permissions(folder.path(), fs::perms::all);
    fs::permissions("TEST.MDB", fs::perms::none);
    // As root anything can be opened; so this is tried by a process that is nobody.
    const auto asNobody = [&](const std::function<void()>& test) {
        SecondProcess process([&](const SecondProcess::Steps&) {
            constexpr uid_t nobody = 65534;
            if (geteuid() == 0 && setuid(nobody) != 0)
                throw std::runtime_error("could not become nobody");
            test();
        });
        return process.finish();
    };
    const auto require = [](bool held, const std::string& what) {
        if (!held)
            throw std::runtime_error(what);
    };
    EXPECT_EQ(asNobody([&] {
                  const std::string error = opened("TEST.MDB");
                  require(error == "3051 Cannot open or write to the file '" + path("TEST.MDB") +
                                       "': no permission, or opened exclusively by another user.",
                          error);
              }),
              0);
    fs::permissions("TEST.MDB", fs::perms::owner_all | fs::perms::others_read);
    EXPECT_EQ(asNobody([&] {
                  const std::string error = raised([&] {
                      Database reader = workspace.OpenDatabase("TEST.MDB");
                      Recordset rows = reader.OpenRecordset("T");
                      add(rows, {{"A", 1}});
                  });
                  require(error.starts_with("3027") || error.starts_with("3051"), error);
                  require(error.find(path("TEST.MDB")) != std::string::npos, error);
              }),
              0);
}

TEST_P(Opening, CreatesWhereNothingIs) {
    Database created = workspace.CreateDatabase("NEW.MDB");
    EXPECT_EQ(created.Name(), path("NEW.MDB"));
    EXPECT_EQ(created.TableDefs().Count(), 0);
    EXPECT_EQ(raised([&] { return workspace.CreateDatabase("new.mdb"); }),
              "3204 Database '" + path("NEW.MDB") + "' already exists.");
    folder.write("TAKEN", "x");
    EXPECT_EQ(raised([&] { return workspace.CreateDatabase("TAKEN"); }),
              "3204 Database '" + path("TAKEN") + "' already exists.");
    EXPECT_EQ(folder.read("TAKEN"), "x");
    EXPECT_EQ(raised([&] { return workspace.CreateDatabase(R"(C:\NO\NEW.MDB)"); }),
              "3044 '" + (folder.driveC() / "NO/NEW.MDB").string() + "' is not a valid path.");
    fs::create_symlink("nowhere", "DANGLING.MDB");
    EXPECT_EQ(raised([&] { return workspace.CreateDatabase("DANGLING.MDB"); }).substr(0, 4), "3204");
}

TEST_P(Opening, ExclusiveOpeningIsNotOffered) {
    EXPECT_EQ(raised([&] { return workspace.OpenDatabase("TEST.MDB", true); }),
              "3251 Operation is not supported for this type of object.");
}

TEST_P(Opening, OnlyTablesAreOpened) {
    make("T", {field("A", dbLong)});
    for (const int type : {0, 2, 4, 8, 16})
        EXPECT_EQ(raised([&] { return database.OpenRecordset("T", type); }), "3001 Invalid argument.");
    Recordset rows = database.OpenRecordset("T", dbOpenTable, dbSeeChanges, dbPessimistic);
    EXPECT_EQ(rows.RecordCount(), 0);
    EXPECT_EQ(raised([&] { return database.OpenRecordset("NONE"); }), "3078 Cannot find the table 'NONE'.");
    EXPECT_EQ(raised([&] { return database.OpenRecordset(""); }), "3078 Cannot find the table '(no name)'.");
}

TEST_P(Opening, ClosedObjectsAreInvalid) {
    make("T", {field("A", dbLong)}, {plainIndex("A", {"A"})});
    TableDefs tables = database.TableDefs();
    TableDef table = tables("T");
    Field defined = table.Fields("A");
    TableDef draft = database.CreateTableDef("DRAFT");
    Recordset closed = open("T");
    closed.Close();
    EXPECT_FALSE(closed.isOpen());
    EXPECT_EQ(raised([&] { return closed.Close(); }), invalid);
    Recordset rows = open("T");
    const RecordsetFields fields = rows.Fields();
    database.Close();

    EXPECT_FALSE(rows.isOpen());
    EXPECT_FALSE(database.isOpen());
    const std::function<void()> uses[] = {
        [&] { rows.Close(); },
        [&] { static_cast<void>(rows.Name()); },
        [&] { static_cast<void>(rows.RecordCount()); },
        [&] { static_cast<void>(rows.AtBOF()); },
        [&] { static_cast<void>(rows.AtEOF()); },
        [&] { static_cast<void>(rows.NoMatch()); },
        [&] { rows.Index("A"); },
        [&] { static_cast<void>(rows.Index()); },
        [&] { rows.MoveFirst(); },
        [&] { rows.MoveLast(); },
        [&] { rows.MoveNext(); },
        [&] { rows.MovePrevious(); },
        [&] { static_cast<void>(rows.Bookmark()); },
        [&] { rows.Bookmark("1"); },
        [&] { rows.Seek("=", {1}); },
        [&] { rows.AddNew(); },
        [&] { rows.Edit(); },
        [&] { rows.Update(); },
        [&] { rows.CancelUpdate(); },
        [&] { rows.Delete(); },
        [&] { static_cast<void>(rows.LastModified()); },
        [&] { static_cast<void>(rows.Fields("A")); },
        [&] { static_cast<void>(fields.Count()); },
        [&] { database.Close(); },
        [&] { static_cast<void>(database.Name()); },
        [&] { database.OpenRecordset("T"); },
        [&] { static_cast<void>(database.TableDefs()); },
        [&] { static_cast<void>(database.CreateTableDef("X")); },
        [&] { static_cast<void>(tables.Count()); },
        [&] { static_cast<void>(tables("T")); },
        [&] { tables.Append(draft); },
        [&] { tables.Delete("T"); },
        [&] { static_cast<void>(table.Name()); },
        [&] { static_cast<void>(table.Fields().Count()); },
        [&] { static_cast<void>(defined.Type()); },
        [&] { table.Fields().Append(table.CreateField("B", dbLong)); },
        [&] { table.Indexes().Delete("A"); },
    };
    int number = 0;
    for (const auto& use : uses)
        EXPECT_EQ(raised(use), invalid) << number++;

    workspace.Close();
    EXPECT_FALSE(workspace.isOpen());
    EXPECT_EQ(raised([&] { return workspace.Close(); }), invalid);
    EXPECT_EQ(raised([&] { return workspace.Name(); }), invalid);
    EXPECT_EQ(raised([&] { return workspace.OpenDatabase("TEST.MDB"); }), invalid);
    EXPECT_EQ(raised([&] { return workspace.CreateDatabase("X.MDB"); }), invalid);
    EXPECT_EQ(raised([&] { return workspace.BeginTrans(); }), invalid);
    EXPECT_EQ(raised([&] { return workspace.CommitTrans(); }), invalid);
}

TEST_P(Opening, WorkspaceClosesItsDatabases) {
    make("T", {field("A", dbLong)});
    Recordset rows = open("T");
    EXPECT_EQ(workspace.Name(), "wksTEST");
    workspace.Close();
    EXPECT_FALSE(rows.isOpen());
    EXPECT_EQ(raised([&] { return database.Name(); }), invalid);
}

TEST_P(Opening, HandlesCloseWhenTheyGo) {
    make("T", {field("A", dbLong)});
    {
        Workspace other = DBEngine::CreateWorkspace("wksOTHER");
        Database second = other.OpenDatabase("TEST.MDB");
        Recordset rows = second.OpenRecordset("T");
        Recordset moved = std::move(rows);
        moved = second.OpenRecordset("T"); // the first one is closed by that
    }
    database.TableDefs().Delete("T"); // nobody has it open
}

TOL_OVER_ALL_ENGINES(Opening);

TEST(Handles, DefaultMadeStandForNone) {
    Recordset rows;
    Database database;
    Workspace workspace;
    EXPECT_FALSE(rows.isOpen());
    EXPECT_FALSE(database.isOpen());
    EXPECT_FALSE(workspace.isOpen());
    EXPECT_EQ(raised([&] { return rows.MoveNext(); }), notSet);
    EXPECT_EQ(raised([&] { return rows.RecordCount(); }), notSet);
    EXPECT_EQ(raised([&] { return rows.Fields("A"); }), notSet);
    EXPECT_EQ(raised([&] { return rows.Close(); }), notSet);
    EXPECT_EQ(raised([&] { return database.OpenRecordset("T"); }), notSet);
    EXPECT_EQ(raised([&] { return database.TableDefs(); }), notSet);
    EXPECT_EQ(raised([&] { return database.Close(); }), notSet);
    EXPECT_EQ(raised([&] { return workspace.OpenDatabase("X"); }), notSet);
    EXPECT_EQ(raised([&] { return workspace.BeginTrans(); }), notSet);
    EXPECT_EQ(raised([&] { return workspace.Close(); }), notSet);
}

TEST(Handles, WorkspacesAreOfOneType) {
    EXPECT_EQ(DBEngine::CreateWorkspace("wksNET", "Admin", "", dbUseJet).Name(), "wksNET");
    EXPECT_EQ(raised([&] { return DBEngine::CreateWorkspace("wksNET", "admin", "", 1); }),
              "3001 Invalid argument.");
}
