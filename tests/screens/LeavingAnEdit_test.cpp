// SPDX-License-Identifier: MIT
// Every list window, left or put away in the middle of an edit: no check runs behind the person's back,
// nothing is written, and what comes back is as it was.
#include "demo_support/DemoFolder.h"
#include "forms/controls/TextBox.h"
#include "forms/events/WindowHost.h"
#include "forms/windows/Form.h"
#include "forms/windows/LoadedForms.h"
#include "shell/frmTOLMAIN.h"
#include "support/WindowDriver.h"
#include "tol/Windows.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <optional>
#include <tuple>

namespace tol::test {
namespace {

using testing::IsEmpty;

/// A list window of the menu, and the table that it edits. A further window joins by a line.
struct ListOfMenu {
    const char* item;
    const char* window;
    const char* file;
    const char* table;
};

constexpr ListOfMenu lists[] = {
    {"miDBBrowse", "frmDBPBrowse", "DBPATHS.MDB", "DBPATHS"},
    {"miTOLMOD01", "frmTOLMOD01", "ZOVNET.MDB", "MODULES"},
    {"miTOLUAI01", "frmTOLUAI01", "ZOVNET.MDB", "USERACCESSITEMS"},
    {"miTOLURT01", "frmTOLURT01", "ZOVNET.MDB", "URTEMPLATES"},
    {"miTOLURL01", "frmTOLURL01", "ZOVNET.MDB", "USERLIST"},
};

/// How a box is left alone: the key that begins the edit, and what is then typed into the box.
struct EditState {
    const char* name;
    Qt::Key begin;
    const char* typed;
};

constexpr EditState states[] = {
    {"AddUntouched", Qt::Key_A, ""},
    {"AddTyped", Qt::Key_A, "Z"},
    {"EditBlanked", Qt::Key_E, " "},
    {"EditTyped", Qt::Key_E, "Z"},
};

class LeavingAnEdit : public testing::Test {
  protected:
    /// The program, with the list window opened in it.
    void open(const ListOfMenu& list) {
        desk.reset();
        main.emplace();
        addWindows(*main);
        main->load();
        main->findChild<QTimer*>("Timer1")->setInterval(0);
        ASSERT_TRUE(QTest::qWaitFor([this] { return main->isVisible(); }));
        ASSERT_TRUE(QTest::qWaitForWindowActive(&*main));
        main->findChild<QAction*>(list.item)->trigger();
        window = dynamic_cast<forms::Form*>(forms::LoadedForms::find(list.window));
        ASSERT_NE(window, nullptr);
        desk = std::make_unique<WindowDriver>(*window);
    }

    [[nodiscard]] QMdiSubWindow& frame() const {
        return dynamic_cast<QMdiSubWindow&>(*window->parentWidget());
    }

    /// The boxes from left to right.
    [[nodiscard]] std::vector<forms::TextBox*> boxes() const {
        std::vector<forms::TextBox*> found;
        for (QLineEdit* box : window->findChildren<QLineEdit*>())
            found.push_back(&dynamic_cast<forms::TextBox&>(*box));
        std::ranges::sort(found, {}, [](const forms::TextBox* box) { return box->x(); });
        return found;
    }

    /// Begins an edit and goes on to that box, past boxes that hold something good.
    void begin(const EditState& state, std::size_t position) const {
        desk->press(state.begin);
        for (std::size_t i = 0; i < position; ++i) {
            desk->type("Q");
            desk->click(boxes()[i + 1]->objectName());
        }
        ASSERT_EQ(desk->focus(), boxes()[position]->objectName().toStdString());
        desk->type(state.typed);
    }

    /// What is to be seen of the edit.
    [[nodiscard]] std::vector<std::string> shown() const {
        std::vector<std::string> all{desk->focus(), desk->text("cmdExit")};
        for (const forms::TextBox* box : boxes())
            all.push_back(box->isVisible() ? box->Text() : "out of sight");
        return all;
    }

    [[nodiscard]] std::vector<std::string> stored(const ListOfMenu& list) const {
        const bool isNet = std::string_view(list.file) == "ZOVNET.MDB";
        std::vector<std::string> rows;
        forEachRow(isNet ? folder.net() : list.file, list.table, [&](const data::Recordset& row) {
            std::string line;
            for (int i = 0; i < row.Fields().Count(); ++i)
                line += text(row, row.Fields(i).Name()) + "|";
            rows.push_back(line);
        });
        return rows;
    }

    DemoFolder folder;
    std::optional<shell::frmTOLMAIN> main;
    forms::Form* window = nullptr;
    std::unique_ptr<WindowDriver> desk;
    std::size_t count = 0; ///< of boxes
};

/// A way to leave the window for good.
struct WayOut {
    const char* name;
    void (*leave)(shell::frmTOLMAIN& main, QMdiSubWindow& frame);
};

constexpr WayOut waysOut[] = {
    {"CloseButton", [](shell::frmTOLMAIN&, QMdiSubWindow& frame) { frame.close(); }},
    {"MainCloseButton", [](shell::frmTOLMAIN& main, QMdiSubWindow&) { main.close(); }},
};

/// A way to put it away, and back.
struct WayAndBack {
    const char* name;
    void (*away)(shell::frmTOLMAIN& main, QMdiSubWindow& frame);
    void (*back)(shell::frmTOLMAIN& main, QMdiSubWindow& frame);
};

constexpr WayAndBack waysAndBack[] = {
    {"Minimised", [](shell::frmTOLMAIN&, QMdiSubWindow& frame) { frame.showMinimized(); },
     [](shell::frmTOLMAIN&, QMdiSubWindow& frame) { frame.showNormal(); }},
    {"MainMinimised", [](shell::frmTOLMAIN& main, QMdiSubWindow&) { main.showMinimized(); },
     [](shell::frmTOLMAIN& main, QMdiSubWindow&) { main.showNormal(); }},
    {"OtherWindow",
     [](shell::frmTOLMAIN& main, QMdiSubWindow&) {
         auto other = std::make_unique<forms::Form>("frmOther");
         forms::TextBox& box = forms::TextBox::add(*other, "txtOTHER", 9, {150, 150, 1500, 315});
         main.showChild(std::move(other));
         box.setFocus();
         QTest::keyClicks(&box, "typed");
         EXPECT_EQ(box.Text(), "typed");
     },
     [](shell::frmTOLMAIN&, QMdiSubWindow& frame) { frame.mdiArea()->setActiveSubWindow(&frame); }},
};

using Out = std::tuple<ListOfMenu, EditState, WayOut>;
using AndBack = std::tuple<ListOfMenu, EditState, WayAndBack>;

template <typename Param>
std::string nameOf(const testing::TestParamInfo<Param>& instance) {
    const auto& [list, state, way] = instance.param;
    return std::string(list.window) + "_" + state.name + "_" + way.name;
}

class LeavingForGood : public LeavingAnEdit, public testing::WithParamInterface<Out> {};

TEST_P(LeavingForGood, FromEachBoxChecksAndWritesNothing) {
    const auto& [list, state, way] = GetParam();
    const std::vector<std::string> before = stored(list);
    ASSERT_FALSE(before.empty());
    for (std::size_t position = 0; position == 0 || position < count; ++position) {
        ASSERT_NO_FATAL_FAILURE(open(list));
        count = boxes().size();
        ASSERT_NO_FATAL_FAILURE(begin(state, position));
        way.leave(*main, frame());
        QCoreApplication::processEvents();
        EXPECT_THAT(folder.host.texts(), IsEmpty()) << "from box " << position;
        EXPECT_EQ(forms::LoadedForms::find(list.window), nullptr);
        EXPECT_EQ(stored(list), before);
    }
}

INSTANTIATE_TEST_SUITE_P(Each, LeavingForGood,
                         testing::Combine(testing::ValuesIn(lists), testing::ValuesIn(states),
                                          testing::ValuesIn(waysOut)),
                         nameOf<Out>);

class PuttingAway : public LeavingAnEdit, public testing::WithParamInterface<AndBack> {};

TEST_P(PuttingAway, FromEachBoxChecksNothingAndComesBackAsItWas) {
    const auto& [list, state, way] = GetParam();
    for (std::size_t position = 0; position == 0 || position < count; ++position) {
        ASSERT_NO_FATAL_FAILURE(open(list));
        count = boxes().size();
        ASSERT_NO_FATAL_FAILURE(begin(state, position));
        const std::vector<std::string> before = shown();
        way.away(*main, frame());
        QCoreApplication::processEvents();
        EXPECT_THAT(folder.host.texts(), IsEmpty()) << "from box " << position;
        way.back(*main, frame());
        ASSERT_TRUE(QTest::qWaitForWindowActive(&*main));
        EXPECT_EQ(shown(), before) << "from box " << position;
        desk->press(Qt::Key_Escape);
        EXPECT_EQ(desk->focus(), "hsbMAIN");
        EXPECT_THAT(folder.host.texts(), IsEmpty());
    }
}

INSTANTIATE_TEST_SUITE_P(Each, PuttingAway,
                         testing::Combine(testing::ValuesIn(lists), testing::ValuesIn(states),
                                          testing::ValuesIn(waysAndBack)),
                         nameOf<AndBack>);

class EndingDeathTest : public LeavingAnEdit, public testing::WithParamInterface<ListOfMenu> {};

TEST_P(EndingDeathTest, TheMenusExitEndsTheProgramInTheMiddleOfAnEdit) {
    const auto run = [this] {
        const forms::WindowHost host;
        open(GetParam());
        begin({"EditBlanked", Qt::Key_E, " "}, 0);
        main->findChild<QAction*>("miExit")->trigger();
        std::fputs("still there", stderr);
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(0), "^$");
}

INSTANTIATE_TEST_SUITE_P(Each, EndingDeathTest, testing::ValuesIn(lists),
                         [](const auto& instance) { return std::string(instance.param.window); });

} // namespace
} // namespace tol::test
