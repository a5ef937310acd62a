// SPDX-License-Identifier: MIT
// Deletes of Record Locks, and what others do meanwhile.
#include "LocksTest.h"

#include "data/OpenTable.h"
#include "runtime/RuntimeError.h"
#include "support/SecondProcess.h"

#include <QAbstractButton>

#include <fstream>
#include <random>
#include <set>

namespace tol::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class DeleteLock : public LocksTest {
  protected:
    void expectTold(const std::string& text) const {
        ASSERT_THAT(person.boxes, testing::Not(IsEmpty()));
        EXPECT_EQ(person.boxes.back().title, "Cannot Delete Record Lock");
        EXPECT_EQ(person.boxes.back().icon, QMessageBox::Critical);
        EXPECT_THAT(person.boxes.back().text, HasSubstr(text));
    }
    void expectToldGone() const {
        expectTold("This Record Lock has been Deleted or Changed by Another User.");
    }
    /// Does the work while the question stands, and then answers OK to all boxes.
    void whileAsked(std::function<void()> work) {
        person.onBox = [work = std::move(work)](QMessageBox& box) {
            if (box.windowTitle() == "Confirm Delete")
                work();
            box.findChild<QAbstractButton*>("cmdOK")->click();
        };
    }
};

TEST_F(DeleteLock, AsksAndGoesToTheFirstRow) {
    openWith(4);
    desk->press(Qt::Key_Down);
    desk->press(Qt::Key_Down);
    person.answers = {"cmdOK"};
    desk->click("cmdDelete");
    expectBox("OK to Delete this Record Lock?", QMessageBox::Question, "Confirm Delete");
    EXPECT_THAT(person.boxes[0].buttons, ElementsAre("cmdOK", "cmdCancel"));
    EXPECT_EQ(tags(), "1* 2 4 End");
    EXPECT_EQ(desk->focus(), "hsbMAIN");
    EXPECT_THAT(net.locks.rows(), SizeIs(3));
}

TEST_F(DeleteLock, CancelKeepsAll) {
    openWith(4);
    desk->press(Qt::Key_Down);
    person.answers = {"cmdCancel"};
    desk->press(Qt::Key_Delete);
    EXPECT_EQ(tags(), "1 2* 3 4 End");
    EXPECT_THAT(net.locks.rows(), SizeIs(4));
    EXPECT_THAT(person.boxes, SizeIs(1));
}

TEST_F(DeleteLock, TheLastOneLeavesAnEmptyListAtOnce) {
    openWith(1);
    desk->press(Qt::Key_D);
    EXPECT_EQ(tags(), "Empty*");
    desk->press(Qt::Key_D);
    desk->click("cmdDelete");
    EXPECT_THAT(person.boxes, SizeIs(1)) << "no row is current";
    tick();
    EXPECT_EQ(tags(), "Empty*");
}

TEST_F(DeleteLock, OneThatComesAfterTheLastWasDeletedIsCurrent) {
    openWith(1);
    desk->press(Qt::Key_D);
    addNumbered(2, 2);
    tick();
    EXPECT_EQ(tags(), "2* End") << "though there are as many as at the last tick";
}

TEST_F(DeleteLock, TheEndRowHasNothingToDelete) {
    openWith(1);
    desk->press(Qt::Key_Down);
    desk->press(Qt::Key_D);
    desk->click("cmdDelete");
    EXPECT_THAT(person.boxes, IsEmpty());
    EXPECT_EQ(tags(), "1 End*");
}

TEST_F(DeleteLock, OneThatIsGoneSinceTheTickIsTold) {
    openWith(4);
    desk->press(Qt::Key_Down);
    net.locks.remove("TAGNO", 2);
    desk->press(Qt::Key_D);
    EXPECT_THAT(person.boxes, SizeIs(1)) << "without a question";
    expectToldGone();
    EXPECT_EQ(tags(), "1* 3 4 End");
    EXPECT_THAT(net.locks.rows(), SizeIs(3));
}

TEST_F(DeleteLock, OneThatGoesWhileTheQuestionStandsIsTold) {
    openWith(4);
    desk->press(Qt::Key_Down);
    whileAsked([&] { net.locks.remove("TAGNO", 2); });
    desk->press(Qt::Key_D);
    EXPECT_THAT(person.boxes, SizeIs(2));
    expectToldGone();
    EXPECT_EQ(tags(), "1* 3 4 End");
}

TEST_F(DeleteLock, TheOnlyOneThatGoesWhileTheQuestionStandsLeavesAnEmptyList) {
    openWith(1);
    whileAsked([&] { net.locks.remove("TAGNO", 1); });
    desk->press(Qt::Key_D);
    expectToldGone();
    EXPECT_EQ(tags(), "Empty*");
}

TEST_F(DeleteLock, OneThatBecomesAnotherLockIsLeftAlone) {
    openWith(2);
    whileAsked([&] { net.locks.change("TAGNO", 1, 8); });
    desk->press(Qt::Key_D);
    expectToldGone();
    EXPECT_EQ(tags(), "2* 8 End");
    EXPECT_THAT(net.locks.rows(), SizeIs(2));
}

TEST_F(DeleteLock, TheRowShowsWhatIsAskedAbout) {
    openWith(2);
    net.locks.change("TAGNO", 1, 8);
    std::string shown;
    whileAsked([&] { shown = desk->text("lblTAGNO(0)"); });
    desk->press(Qt::Key_D);
    EXPECT_EQ(shown, "8");
    EXPECT_THAT(net.locks.rows(), ElementsAre(testing::StartsWith("2|")));
}

TEST_F(DeleteLock, NoTickComesBetweenTheQuestionAndTheDelete) {
    openWith(4);
    desk->press(Qt::Key_Down);
    std::string shown;
    whileAsked([&] {
        net.locks.remove("TAGNO", 1);
        net.locks.add({lock(5)});
        tick();
        shown = tags();
    });
    desk->press(Qt::Key_D);
    EXPECT_EQ(shown, "1 2* 3 4 End");
    EXPECT_EQ(tags(), "3* 4 5 End");
    net.locks.add({lock(6)});
    tick();
    EXPECT_EQ(tags(), "3* 4 5 6 End") << "it goes on ticking afterwards";
}

// Whatever others did before and after the last tick, the lock that goes is the one that was highlighted.
TEST_F(DeleteLock, TheHighlightedLockIsTheOneThatGoes) {
    std::mt19937 random(71); // NOLINT: the same each time
    const auto below = [&](int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); };
    std::set<int> locks;
    const auto changeSome = [&] {
        for (int change = below(3); change > 0; --change) {
            const int tag = below(15);
            if (locks.erase(tag) != 0)
                net.locks.remove("TAGNO", tag);
            else if (locks.insert(tag).second)
                net.locks.add({lock(tag)});
        }
    };
    openWith(0);
    constexpr Qt::Key keys[] = {Qt::Key_Down, Qt::Key_End, Qt::Key_Up, Qt::Key_PageDown};
    for (int step = 0; step < 60; ++step) {
        changeSome();
        tick();
        desk->press(keys[below(4)]);
        changeSome();
        const std::string before = tags();
        const std::string marked = before.substr(0, before.find('*'));
        const std::string highlighted = marked.substr(marked.rfind(' ') + 1);
        std::set<int> left = locks;
        if (highlighted != "End" && highlighted != "Empty")
            left.erase(std::stoi(highlighted));
        desk->press(Qt::Key_D);
        std::set<int> stored;
        for (const std::string& row : net.locks.rows())
            stored.insert(std::stoi(row));
        ASSERT_EQ(stored, left) << step << ": " << before;
        locks = left;
    }
}

// Others at the same file.

TEST_F(DeleteLock, TwoAdministratorsDeleteTheSameLock) {
    addNumbered(1, 3);
    const SecondProcess other([this](const SecondProcess::Steps& steps) {
        steps.wait();
        net.locks.remove("TAGNO", 1);
        steps.done();
        steps.wait();
    });
    open();
    whileAsked([&] {
        other.next();
        EXPECT_TRUE(other.await());
    });
    desk->press(Qt::Key_D);
    expectToldGone();
    EXPECT_EQ(tags(), "2* 3 End");
}

// Each deletes all that it sees as long as it sees any; the other one is at the same lock again and again.
TEST_F(DeleteLock, TwoAdministratorsDeleteAllAtOnce) {
    constexpr int count = 40;
    addNumbered(1, count);
    SecondProcess other([](const SecondProcess::Steps& steps) {
        data::OpenTable table("wksOTHER", NetworkTables::file, "RECORDLOCKS");
        int deleted = 0;
        steps.done();
        steps.wait();
        for (table.rows.Index("RECORDLOCKS"); !table.rows.AtEOF(); table.rows.MoveNext()) {
            try {
                table.rows.Delete();
                data::DBEngine::flush();
                ++deleted;
            } catch (const runtime::RuntimeError&) { // the other administrator's
            }
        }
        std::ofstream("deleted-by-other") << deleted;
    });
    open();
    ASSERT_TRUE(other.await());
    other.next();
    int deletedHere = 0;
    while (tags() != "Empty*") {
        person.boxes.clear();
        desk->press(Qt::Key_D);
        deletedHere += person.boxes.size() == 1 && person.boxes[0].title == "Confirm Delete" ? 1 : 0;
        tick();
    }
    EXPECT_EQ(other.finish(), 0);
    EXPECT_THAT(net.locks.rows(), IsEmpty());
    EXPECT_EQ(deletedHere + std::stoi(folder.read("deleted-by-other")), count) << "each lock once";
}

TEST_F(DeleteLock, OneThatCanNotBeDeletedIsTold) {
    addNumbered(1, 2);
    const SecondProcess other([](const SecondProcess::Steps& steps) {
        data::Workspace workspace = data::DBEngine::CreateWorkspace("wksOTHER");
        const data::Database database = workspace.OpenDatabase(NetworkTables::file);
        steps.wait();
        workspace.BeginTrans();
        steps.done();
        steps.wait();
    });
    open();
    desk->press(Qt::Key_Down);
    other.next();
    ASSERT_TRUE(other.await());
    desk->press(Qt::Key_D);
    expectTold((folder / NetworkTables::file).string());
    EXPECT_EQ(tags(), "1* 2 End");
    EXPECT_EQ(window->windowTitle(), "Record Locks");
}

} // namespace
} // namespace tol::test
