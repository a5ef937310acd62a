// SPDX-License-Identifier: MIT
#include "data/DBEngine.h"
#include "demo_support/DemoFolder.h"
#include "platform/Paths.h"
#include "runtime/Conversions.h"
#include "shell/vdfunctions/vdEmptyTable.h"
#include "support/Program.h"
#include "support/Raises.h"
#include "support/SecondProcess.h"

#include <gmock/gmock.h>

#include <chrono>
#include <thread>

namespace tol::test {
namespace {

using namespace data;
using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;
using testing::HasSubstr;

constexpr int tableInUse = 3211;
constexpr int rowLocked = 3218;

/// An open database of the demo, or of another process's view of it.
struct Opened {
    explicit Opened(const std::string& file)
        : workspace(DBEngine::CreateWorkspace("wksTEST")), database(workspace.OpenDatabase(file)) {}

    Workspace workspace;
    Database database;
};

/// Two programs at work in the same demo. The second process is made before this one opens a file.
class TwoProcesses : public testing::Test {
  protected:
    DemoFolder demo;
    const std::string crew = R"(S:\SITES\HOLLOW\CREW.MDB)";

    /// A process that has the table open until next() is told.
    static auto holding(const std::string& file, const std::string& table) {
        return [=](const SecondProcess::Steps& steps) {
            Opened other(file);
            const Recordset rows = other.database.OpenRecordset(table);
            steps.done();
            steps.wait();
        };
    }
};

milliseconds elapsed(const std::function<void()>& call) {
    const auto start = Clock::now();
    call();
    return std::chrono::duration_cast<milliseconds>(Clock::now() - start);
}

TEST_F(TwoProcesses, ATableOpenElsewhereCanNotBeChangedAndSaysSoAtOnce) {
    SecondProcess other(holding(crew, "CREWS"));
    ASSERT_TRUE(other.await());
    Opened own(crew);
    const TableDef crews = own.database.TableDefs("CREWS");
    const auto appendField = [&] { crews.Fields().Append(crews.CreateField("NEWONE", dbLong)); };
    const milliseconds time = elapsed([&] {
        EXPECT_EQ(errorOf(appendField), tableInUse);
        EXPECT_EQ(errorOf([&] { crews.Fields().Delete("COLOUR"); }), tableInUse);
        EXPECT_EQ(errorOf([&] { crews.Indexes().Delete("FOREMAN"); }), tableInUse);
        EXPECT_EQ(errorOf([&] { own.database.TableDefs().Delete("CREWS"); }), tableInUse);
        EXPECT_EQ(errorOf([&] { TableDef(crews).Name("GANGS"); }), tableInUse);
    });
    EXPECT_LT(time, milliseconds(1500)) << "no waiting";
    EXPECT_EQ(descriptionOf(appendField),
              "Could not lock table 'CREWS'; it is in use by another user or process.");
    EXPECT_EQ(errorOf([&] { own.database.TableDefs("TRADES").Fields().Delete("STEPS"); }), 0)
        << "another table is free";

    other.next();
    EXPECT_EQ(other.finish(), 0);
    EXPECT_EQ(errorOf(appendField), 0) << "and this one too, once it is closed";
}

TEST_F(TwoProcesses, ATableOpenElsewhereCanNotBeEmptied) {
    SecondProcess other(holding("ZOVDEF.MDB", "OLDDEF"));
    ASSERT_TRUE(other.await());
    {
        Opened own("ZOVDEF.MDB");
        Recordset rows = own.database.OpenRecordset("OLDDEF");
        const milliseconds time =
            elapsed([&] { EXPECT_FALSE(shell::vdEmptyTable(" ", "ZOVDEF.MDB", rows)); });
        EXPECT_LT(time, milliseconds(1500));
        EXPECT_FALSE(rows.isOpen());
        EXPECT_EQ(demo.host.texts(),
                  std::vector<std::string>{
                      "Cannot Obtain Exclusive use of the Table: OLDDEF\nCannot Empty Table."});
    }
    other.next();
    EXPECT_EQ(other.finish(), 0);
}

TEST_F(TwoProcesses, AKilledProcessHoldsNothing) {
    auto other = std::make_unique<SecondProcess>(holding(crew, "CREWS"));
    ASSERT_TRUE(other->await());
    Opened own(crew);
    const TableDef crews = own.database.TableDefs("CREWS");
    EXPECT_EQ(errorOf([&] { crews.Fields().Delete("COLOUR"); }), tableInUse);
    other.reset();
    EXPECT_EQ(errorOf([&] { crews.Fields().Delete("COLOUR"); }), 0);
}

TEST_F(TwoProcesses, ARowWrittenByOneIsSeenByTheOther) {
    SecondProcess other([&](const SecondProcess::Steps& steps) {
        Opened there(crew);
        Recordset rows = there.database.OpenRecordset("CREWS");
        for (int step = 0; step < 3; ++step) {
            steps.done();
            steps.wait();
            if (step == 0)
                rows.AddNew();
            else
                rows.Edit();
            rows.Fields("CREWTAG").Value(std::int32_t{900 + step});
            rows.Fields("CREWCODE").Value("NEW");
            rows.Update();
            DBEngine::flush();
            rows.Bookmark(rows.LastModified());
        }
        rows.Delete();
        DBEngine::flush();
        steps.done();
    });
    ASSERT_TRUE(other.await());
    Opened own(crew);
    Recordset rows = own.database.OpenRecordset("CREWS");
    const std::int64_t before = rows.RecordCount();
    rows.Index("CREWS");
    const auto find = [&](std::int32_t tag) {
        rows.Seek("=", {tag});
        return !rows.NoMatch();
    };
    EXPECT_FALSE(find(900));

    // Changes of others are looked for every few milliseconds, not at each call.
    const auto stepOfOther = [&] {
        other.next();
        const bool done = other.await();
        std::this_thread::sleep_for(milliseconds(20));
        return done;
    };
    ASSERT_TRUE(stepOfOther());
    EXPECT_EQ(rows.RecordCount(), before + 1);
    EXPECT_TRUE(find(900));
    EXPECT_EQ(text(rows, "CREWCODE"), "NEW");

    ASSERT_TRUE(stepOfOther());
    EXPECT_FALSE(find(900));
    EXPECT_TRUE(find(901));

    ASSERT_TRUE(stepOfOther());
    EXPECT_FALSE(find(901));
    EXPECT_FALSE(find(902)) << "deleted again";
    EXPECT_EQ(rows.RecordCount(), before);
    EXPECT_EQ(other.finish(), 0);
}

/// A process that keeps the file's write lock until next() is told, or for a time.
auto writing(const std::string& file, milliseconds time) {
    return [=](const SecondProcess::Steps& steps) {
        Opened other(file);
        Recordset rows = other.database.OpenRecordset("TRADES");
        other.workspace.BeginTrans();
        rows.Edit();
        rows.Fields("LOCALNO").Value(std::int16_t{1});
        rows.Update();
        steps.done();
        if (time > milliseconds(0))
            std::this_thread::sleep_for(time);
        else
            steps.wait();
        other.workspace.CommitTrans();
    };
}

int writeRow(Opened& own) {
    return errorOf([&] {
        Recordset rows = own.database.OpenRecordset("CREWS");
        rows.Edit();
        rows.Fields("COLOUR").Value(std::int16_t{3});
        rows.Update();
    });
}

TEST_F(TwoProcesses, AWriterThatHoldsOnMakesTheOtherWaitFiveSecondsAndThenFail) {
    SecondProcess other(writing(crew, milliseconds(0)));
    ASSERT_TRUE(other.await());
    Opened own(crew);
    Recordset rows = own.database.OpenRecordset("CREWS");
    std::string told;
    const milliseconds time = elapsed([&] {
        told = descriptionOf([&] {
            rows.Edit();
            rows.Fields("COLOUR").Value(std::int16_t{3});
            rows.Update();
        });
    });
    EXPECT_GE(time, milliseconds(4500));
    EXPECT_LT(time, milliseconds(8000));
    EXPECT_EQ(told, "Could not update '" + platform::hostPath(crew).string() + "'; currently locked.");

    other.next();
    EXPECT_EQ(other.finish(), 0);
    EXPECT_EQ(writeRow(own), 0) << "free again";
}

TEST_F(TwoProcesses, AWriterThatIsDoneSoonIsWaitedFor) {
    SecondProcess other(writing(crew, milliseconds(700)));
    ASSERT_TRUE(other.await());
    Opened own(crew);
    const milliseconds time = elapsed([&] { EXPECT_EQ(writeRow(own), 0); });
    EXPECT_GE(time, milliseconds(300));
    EXPECT_LT(time, milliseconds(4500));
    EXPECT_EQ(other.finish(), 0);
}

/// One run of tolctl over the Job Site HOLLOW CREEK.
struct UpdateRun {
    UpdateRun()
        : program(TOL_CTL_PROGRAM, {"update", "--site", "HOLLOW CREEK", "--on-unconvertible", "continue"},
                  std::filesystem::current_path()),
          status(program.wait()),
          log(program.out()),
          talk(program.err()) {}

    Program program;
    int status;
    std::string log, talk;
};

TEST_F(TwoProcesses, ARunPassesOverATableThatIsOpenElsewhereAndALaterOneDoesIt) {
    SecondProcess other(holding(crew, "CREWS"));
    ASSERT_TRUE(other.await());
    const UpdateRun first;
    EXPECT_EQ(first.status, 3);
    EXPECT_THAT(first.talk,
                HasSubstr("Could not lock table 'CREWS'; it is in use by another user or process."));
    EXPECT_THAT(first.log, HasSubstr("SAFETY")) << "the run goes on";
    // A rule of a field of that table was to change, again and again: the rest of the database waits.
    EXPECT_THAT(first.talk, HasSubstr("left HOLLOW CREEK, CREW,"));
    EXPECT_THAT(first.log, HasSubstr("DATABASE DEFINITION UPDATE INCOMPLETE."));
    EXPECT_THAT(differences(definitionsOf(crew), demo.wanted("CREW")),
                testing::Contains(HasSubstr(" CREWS ")));
    other.next();
    EXPECT_EQ(other.finish(), 0);

    const UpdateRun second;
    EXPECT_EQ(second.status, 0);
    EXPECT_THAT(differences(definitionsOf(crew), demo.wanted("CREW")), testing::IsEmpty());
}

TEST_F(TwoProcesses, ARunWhoseLogIsOpenElsewhereTouchesNothing) {
    SecondProcess other(holding("ZOVDEF.MDB", "ACTIVITYLOG"));
    ASSERT_TRUE(other.await());
    const Definitions before = definitionsOf(crew);
    const UpdateRun run;
    EXPECT_NE(run.status, 0);
    EXPECT_THAT(run.talk, HasSubstr("Cannot Empty Activity Log."));
    EXPECT_THAT(differences(before, definitionsOf(crew)), testing::IsEmpty());
    other.next();
    EXPECT_EQ(other.finish(), 0);
}

} // namespace
} // namespace tol::test
