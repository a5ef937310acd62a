// SPDX-License-Identifier: MIT
#include "LocksTest.h"

#include "data/DBEngine.h"
#include "forms/windows/LoadedForms.h"

#include <QPushButton>

namespace tol::test {
namespace {

using runtime::Null;
using testing::ElementsAre;
using testing::IsEmpty;

using RecordLocks = LocksTest;

TEST_F(RecordLocks, ShowsTheLocksInTheOrderOfTheirIndex) {
    net.locks.add({{12, "ORDERS", "berta", runtime::makeDate({2003, 1, 31, 16, 5, 0}), 4, 2}, lock(7)});
    open();
    EXPECT_EQ(window->windowTitle(), "Record Locks");
    EXPECT_EQ(pageSize(), 7U);
    EXPECT_THAT(page(), ElementsAre("7| JOBS| ann| 1/31/2003 4:05:00 PM|3|1",
                                    "12| ORDERS| berta| 1/31/2003 4:05:00 PM|4|2", " | |End of List.| | | "));
    EXPECT_EQ(highlight(), 0);
    EXPECT_EQ(desk->focus(), "hsbMAIN");
    desk->keepPicture("record-locks");
}

TEST_F(RecordLocks, HasTitlesAndTwoButtons) {
    open();
    const std::pair<const char*, const char*> captions[] = {
        {"lblHTAGNO", "Item Tag"},        {"lblHTABLENAME", " Table Name"},
        {"lblHRLUSERNAME", " User Name"}, {"lblHRLTIMESTAMP", " R/L Time Stamp"},
        {"lblHUSERTAG", "User Tag"},      {"lblHSESSION", "Session #"},
        {"cmdDelete", "&Delete"},         {"cmdExit", "E&xit"}};
    for (const auto& [name, caption] : captions) {
        EXPECT_TRUE(desk->isShown(name)) << name;
        EXPECT_EQ(desk->text(name), caption);
    }
}

TEST_F(RecordLocks, AnEmptyTableSaysSoAndNothingCanBeDeleted) {
    open();
    EXPECT_THAT(page(), ElementsAre(" | |List is Empty.| | | "));
    EXPECT_EQ(highlight(), 0);
    desk->keepPicture("record-locks-empty");
    for (const Qt::Key key : {Qt::Key_D, Qt::Key_Delete, Qt::Key_Down, Qt::Key_End, Qt::Key_PageUp})
        desk->press(key);
    desk->click("cmdDelete");
    EXPECT_EQ(desk->focus(), "hsbMAIN");
    tick();
    EXPECT_EQ(tags(), "Empty*");
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(RecordLocks, NullsAreBlankValues) {
    net.locks.add({{Null{}, Null{}, Null{}, Null{}, Null{}, Null{}}});
    open();
    const std::string blanks(21, ' ');
    EXPECT_EQ(page()[0], "0|" + blanks + "|" + blanks + "| 1/1/1900|0|0");
}

TEST_F(RecordLocks, MovesByKeysAndButtons) {
    openWith(20);
    EXPECT_EQ(tags(), "1* 2 3 4 5 6 7");
    const std::tuple<Qt::Key, const char*, const char*> moves[] = {
        {Qt::Key_Down, "cmdVDBDNARROW", "1 2* 3 4 5 6 7"},
        {Qt::Key_PageDown, "cmdVDBPGDN", "7 8* 9 10 11 12 13"},
        {Qt::Key_PageUp, "cmdVDBPGUP", "1 2* 3 4 5 6 7"},
        {Qt::Key_Up, "cmdVDBUPARROW", "1* 2 3 4 5 6 7"},
        {Qt::Key_End, "cmdVDBEND", "20* End"},
        {Qt::Key_Home, "cmdVDBHOME", "1* 2 3 4 5 6 7"}};
    for (const auto& [key, button, expected] : moves) {
        desk->press(key);
        EXPECT_EQ(tags(), expected) << key;
    }
    for (const auto& [key, button, expected] : moves) {
        desk->click(button);
        EXPECT_EQ(tags(), expected) << button;
        EXPECT_EQ(desk->focus(), "hsbMAIN");
    }
}

TEST_F(RecordLocks, AddsAndChangesNothing) {
    openWith(2);
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_E, Qt::Key_Return})
        desk->press(key);
    desk->click("cmdVDBACTION");
    desk->click("lblTABLENAME(0)");
    EXPECT_EQ(tags(), "1* 2 End") << "a second click edits nothing";
    EXPECT_EQ(forms::LoadedForms::Count(), 1);
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(RecordLocks, FourColumnsSelectByAClickAndTwoDoNot) {
    openWith(3);
    for (const char* cell : {"lblTAGNO", "lblTABLENAME", "lblRLUSERNAME", "lblRLTIMESTAMP"}) {
        desk->press(Qt::Key_Home);
        desk->click(QString(cell) + "(2)");
        EXPECT_EQ(tags(), "1 2 3* End") << cell;
    }
    for (const char* cell : {"lblUSERTAG(0)", "lblSESSION(0)"}) {
        desk->click(cell);
        EXPECT_EQ(tags(), "1 2 3* End") << cell;
    }
    desk->click("lblTAGNO(5)");
    EXPECT_EQ(tags(), "1 2 3* End") << "below the list";
    EXPECT_EQ(desk->focus(), "hsbMAIN");
}

// Second by second.

TEST_F(RecordLocks, ShowsWhatOthersAddAndRemoveAndGoesToTheFirst) {
    openWith(3);
    desk->press(Qt::Key_Down);
    net.locks.add({lock(9)});
    EXPECT_EQ(tags(), "1 2* 3 End");
    tick();
    EXPECT_EQ(tags(), "1* 2 3 9 End");
    desk->press(Qt::Key_Down);
    net.locks.remove("TAGNO", 1);
    tick();
    EXPECT_EQ(tags(), "2* 3 9 End");
    net.locks.add({lock(0)});
    tick();
    EXPECT_EQ(tags(), "0* 2 3 9 End");
}

TEST_F(RecordLocks, TheFirstLockAndTheLastShow) {
    openWith(0);
    addNumbered(1, 1);
    tick();
    EXPECT_EQ(tags(), "1* End");
    net.locks.remove("TAGNO", 1);
    tick();
    EXPECT_EQ(tags(), "Empty*");
    desk->press(Qt::Key_D);
    EXPECT_THAT(person.boxes, IsEmpty());
}

// The first second counts the rows.
TEST_F(RecordLocks, TheFirstTickGoesToTheFirstRow) {
    addNumbered(1, 3);
    open();
    desk->press(Qt::Key_Down);
    tick();
    EXPECT_EQ(tags(), "1* 2 3 End");
    desk->press(Qt::Key_Down);
    tick();
    EXPECT_EQ(tags(), "1 2* 3 End");
}

TEST_F(RecordLocks, AtAnUnchangedCountTheHighlightStaysOnItsRecord) {
    openWith(4);
    desk->press(Qt::Key_Down);
    net.locks.remove("TAGNO", 4);
    net.locks.add({lock(0)});
    tick();
    EXPECT_EQ(tags(), "0 1 2* 3 End") << "the page still begins with the first one";
}

TEST_F(RecordLocks, AtAnUnchangedCountAGoneRecordLeavesTheHighlightToItsRow) {
    openWith(4);
    desk->press(Qt::Key_Down);
    net.locks.remove("TAGNO", 2);
    net.locks.add({lock(9)});
    tick();
    EXPECT_EQ(tags(), "1 3* 4 9 End");
    desk->press(Qt::Key_D);
    EXPECT_THAT(net.locks.rows(), testing::Each(testing::Not(testing::StartsWith("3|"))));
}

TEST_F(RecordLocks, AGoneLastRecordLeavesTheHighlightToTheEnd) {
    openWith(4);
    desk->press(Qt::Key_End);
    desk->press(Qt::Key_Up);
    EXPECT_EQ(tags(), "3* 4 End");
    desk->press(Qt::Key_Down);
    net.locks.remove("TAGNO", 4);
    net.locks.add({lock(0)});
    tick();
    EXPECT_EQ(tags(), "3 End*");
    desk->press(Qt::Key_D);
    EXPECT_THAT(person.boxes, IsEmpty());
    desk->press(Qt::Key_Up);
    EXPECT_EQ(tags(), "3* End");
}

TEST_F(RecordLocks, AScrolledPageStays) {
    openWith(20);
    desk->press(Qt::Key_PageDown);
    desk->press(Qt::Key_Down);
    EXPECT_EQ(tags(), "7 8* 9 10 11 12 13");
    tick();
    EXPECT_EQ(tags(), "7 8* 9 10 11 12 13");
    net.locks.remove("TAGNO", 8);
    net.locks.add({lock(0)});
    tick();
    EXPECT_EQ(tags(), "7 9* 10 11 12 13 14");
    net.locks.remove("TAGNO", 7);
    net.locks.add({lock(30)});
    tick();
    EXPECT_EQ(tags(), "6 9* 10 11 12 13 14");
}

TEST_F(RecordLocks, APageWhoseRecordsAreAllGoneBeginsAtTheFirst) {
    openWith(20);
    desk->press(Qt::Key_PageDown);
    desk->press(Qt::Key_Down);
    for (int tag = 7; tag <= 13; ++tag)
        net.locks.remove("TAGNO", tag);
    addNumbered(21, 27);
    tick();
    EXPECT_EQ(tags(), "1 2* 3 4 5 6 14");
}

TEST_F(RecordLocks, TheEndRowStaysHighlighted) {
    openWith(9);
    desk->press(Qt::Key_End);
    desk->press(Qt::Key_Down);
    EXPECT_EQ(tags(), "9 End*");
    net.locks.remove("TAGNO", 1);
    net.locks.add({lock(10)});
    tick();
    EXPECT_EQ(tags(), "9 10 End*");
}

/// Counts how often anything on a window is painted.
class PaintCounter : public QObject {
  public:
    explicit PaintCounter(QWidget& window) {
        for (QWidget* widget : window.findChildren<QWidget*>())
            widget->installEventFilter(this);
        window.installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override {
        painted += event->type() == QEvent::Paint || event->type() == QEvent::UpdateRequest ? 1 : 0;
        return false;
    }
    int painted = 0;
};

TEST_F(RecordLocks, NothingIsPaintedWhileNothingChanges) {
    for (const int count : {0, 3, 20}) {
        addNumbered(count / 2 + 1, count);
        open();
        tick();
        QCoreApplication::processEvents();
        desk->control("cmdDelete").setFocus();
        QCoreApplication::processEvents();
        PaintCounter counter(*window);
        for (int second = 0; second < 5; ++second) {
            tick();
            QCoreApplication::processEvents();
        }
        EXPECT_EQ(counter.painted, 0) << count;
        EXPECT_EQ(desk->focus(), "cmdDelete") << "no tick takes the keyboard away";
        net.locks.add({lock(99)});
        tick();
        QCoreApplication::processEvents();
        EXPECT_GT(counter.painted, 0);
    }
}

TEST_F(RecordLocks, SeveralWindowsFollowTheTable) {
    openWith(2);
    forms::Form& first = *window;
    const WindowDriver atFirst(first);
    open();
    desk->press(Qt::Key_D);
    EXPECT_EQ(tags(), "2* End");
    EXPECT_TRUE(QMetaObject::invokeMethod(first.findChild<QTimer*>("tmrRLKS"), "timeout"));
    EXPECT_EQ(atFirst.text("lblTAGNO(0)"), "2");
}

// Load, Unload and Exit.

TEST_F(RecordLocks, EscXAndTheButtonCloseTheWindow) {
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_X}) {
        open();
        desk->press(key);
        EXPECT_EQ(forms::LoadedForms::Count(), 0);
    }
    open();
    desk->click("cmdExit");
    EXPECT_EQ(forms::LoadedForms::Count(), 0);
}

TEST_F(RecordLocks, UnloadLetsGoOfTheTable) {
    open();
    window->unload();
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    data::Database database = workspace.OpenDatabase("ZOVNET.MDB");
    EXPECT_NO_THROW(database.TableDefs().Delete("RECORDLOCKS")) << "it needs the table alone";
}

TEST_F(RecordLocks, AMissingNetworkDatabaseLeavesOnlyTheExitButton) {
    folder.remove("ZOVNET.MDB");
    show(std::make_unique<locks::frmTOLRLKS01>(""));
    ASSERT_EQ(person.boxes.size(), 2U);
    EXPECT_EQ(person.boxes[0].title, "Cannot Access");
    EXPECT_EQ(person.boxes[1].title, "Error Displaying Form");
    EXPECT_THAT(person.boxes[1].text,
                testing::StartsWith("Error Loading Form: frmTOLRLKS01\n\nError Number: 3024\n\n"));
    EXPECT_FALSE(timer().isActive());
    expectOnlyTheExitButton();
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_D})
        desk->press(key);
    EXPECT_EQ(person.boxes.size(), 2U);
    desk->click("cmdExit");
    EXPECT_EQ(forms::LoadedForms::Count(), 0);
}

TEST_F(RecordLocks, AMissingTableIsTold) {
    {
        data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
        workspace.OpenDatabase("ZOVNET.MDB").TableDefs().Delete("RECORDLOCKS");
    }
    show(std::make_unique<locks::frmTOLRLKS01>(""));
    ASSERT_EQ(person.boxes.size(), 1U);
    EXPECT_THAT(person.boxes[0].text,
                testing::StartsWith("Error Loading Form: frmTOLRLKS01\n\nError Number: 3078\n\n"));
    expectOnlyTheExitButton();
}

} // namespace
} // namespace tol::test
