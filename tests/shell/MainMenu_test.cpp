// SPDX-License-Identifier: MIT
#include "shell/MainMenu.h"

#include "StartedProgram.h"
#include "forms/windows/LoadedForms.h"
#include "runtime/Host.h"

#include <gmock/gmock.h>

#include <QMenu>
#include <QMenuBar>
#include <QTest>

namespace tol::test {
namespace {

using testing::ElementsAre;

struct ItemRow {
    const char* menu;
    const char* name;
    const char* caption;
    const char* window; // "" when the item opens none
};

void PrintTo(const ItemRow& row, std::ostream* stream) {
    *stream << row.name;
}

constexpr ItemRow items[] = {
    {"&File", "miPath", "&1 - Enter Location of ZOVNET Database", "frmNETPATH"},
    {"&File", "miDBBrowse", "&2 - Browse Job Sites", "frmDBPBrowse"},
    {"&File", "miExit", "E&xit", ""},
    {"User &Rights", "miTOLURL01", "&1 - User List (Assign User Rights)", "frmTOLURL01"},
    {"User &Rights", "miTOLURT01", "&2 - User Rights Templates", "frmTOLURT01"},
    {"User &Access Items", "miTOLUAI01", "&1 - User Access Items", "frmTOLUAI01"},
    {"User &Access Items", "miTOLMOD01", "&2 - Modules", "frmTOLMOD01"},
    {"&Utilities", "miDBUDDU", "&1 - Database Definition Update", "frmDBUDDU"},
    {"&Utilities", "miTOLUTL01", "&2 - Update User Access Items List", "frmTOLUTL01"},
    {"&Utilities", "miTOLRLKS01", "&3 - View/Delete Record Locks", "frmTOLRLKS01"},
    {"&Utilities", "miNETSET", "&4 - Network Settings", "frmNETSET"},
    {"&Window", "miHorizontally", "Tile &Horizontally", ""},
    {"&Window", "miVertical", "Tile &Vertically", ""},
    {"&Window", "miCascade", "&Cascade", ""},
    {"&Help", "miHelpContents", "&Contents", ""},
    {"&Help", "miHelpIndex", "&Index", ""},
    {"&Help", "miHelpSearch", "&Search", ""},
    {"&Help", "miHelpAbout", "&About Tolvane Module", "frmAboutView"},
};

bool isHelp(const ItemRow& item) {
    return std::string_view(item.name).starts_with("miHelp");
}

Qt::Key mnemonicOf(const QString& caption) {
    return static_cast<Qt::Key>(caption.at(caption.indexOf('&') + 1).toUpper().unicode());
}

class MenuTest : public Started {
  protected:
    [[nodiscard]] QAction& action(const char* name) { return *main.findChild<QAction*>(name); }
    [[nodiscard]] QMenu& menuOf(const char* name) { return *dynamic_cast<QMenu*>(action(name).parent()); }

    void chooseByKeys(const char* name) {
        QMenu& menu = menuOf(name);
        QTest::keyClick(&main, mnemonicOf(menu.title()), Qt::AltModifier);
        ASSERT_TRUE(menu.isVisible());
        QTest::keyClick(&menu, mnemonicOf(action(name).text()));
    }

    void chooseByClicks(const char* name) {
        QMenu& menu = menuOf(name);
        QMenuBar& bar = *main.menuBar();
        QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(menu.menuAction()).center());
        ASSERT_TRUE(menu.isVisible());
        QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(&action(name)).center());
    }

    void expectNotReady() {
        ASSERT_EQ(person.boxes.size(), 1U);
        EXPECT_EQ(person.boxes[0].title, "Option Not Ready");
        EXPECT_EQ(person.boxes[0].text, "Development is Pending on this Option.");
        EXPECT_EQ(person.boxes[0].style,
                  (runtime::MsgStyle{runtime::MsgIcon::Information, runtime::MsgButtons::Ok}));
    }
};

TEST_F(MenuTest, IsComplete) {
    std::vector<std::string> found, wanted;
    for (const QAction* top : main.menuBar()->actions())
        for (const QAction* item : top->menu()->actions())
            found.push_back((top->text() + '|' + item->objectName() + '|' + item->text()).toStdString());
    for (const ItemRow& item : items)
        wanted.push_back(std::string(item.menu) + '|' + item.name + '|' + item.caption);
    EXPECT_EQ(found, wanted);
}

TEST_F(MenuTest, NoTwoItemsOfAMenuAndNoTwoMenusShareAKey) {
    std::set<int> menuKeys;
    for (const QAction* top : main.menuBar()->actions()) {
        EXPECT_TRUE(menuKeys.insert(mnemonicOf(top->text())).second);
        std::set<int> itemKeys;
        for (const QAction* item : top->menu()->actions())
            EXPECT_TRUE(itemKeys.insert(mnemonicOf(item->text())).second);
    }
}

class WaitingItem : public MenuTest, public testing::WithParamInterface<ItemRow> {};

TEST_P(WaitingItem, SaysSoByKeys) {
    chooseByKeys(GetParam().name);
    expectNotReady();
}

TEST_P(WaitingItem, SaysSoByClicks) {
    chooseByClicks(GetParam().name);
    expectNotReady();
}

std::vector<ItemRow> waitingItems() {
    std::vector<ItemRow> waiting;
    std::ranges::copy_if(items, std::back_inserter(waiting),
                         [](const ItemRow& item) { return isHelp(item) || *item.window != '\0'; });
    return waiting;
}

INSTANTIATE_TEST_SUITE_P(EachItem, WaitingItem, testing::ValuesIn(waitingItems()),
                         [](const auto& instance) { return std::string(instance.param.name); });

// A main window with a plain window behind every item that opens one.
class Opening : public MenuTest {
  protected:
    Opening() {
        for (const ItemRow& item : items)
            main.addWindow(item.window, [this, name = item.window](shell::frmTOLMAIN& asking) {
                ++made;
                EXPECT_EQ(&asking, &main);
                auto form = std::make_unique<forms::Form>(name);
                form->setWindowTitle(name);
                return form;
            });
    }

    [[nodiscard]] static int loaded(const QString& name) {
        int count = 0;
        for (int i = 0; i < forms::LoadedForms::Count(); ++i)
            count += forms::LoadedForms::Item(i).objectName() == name ? 1 : 0;
        return count;
    }

    int made = 0;
};

class OpeningNew : public Opening, public testing::WithParamInterface<const char*> {};

TEST_P(OpeningNew, MakesAChildAtEveryClick) {
    const QString window = "frm" + QString(GetParam()).mid(2);
    const char* name = GetParam();
    chooseByKeys(name);
    chooseByClicks(name);
    EXPECT_EQ(made, 2);
    EXPECT_EQ(loaded(name == std::string_view("miDBBrowse") ? "frmDBPBrowse" : window), 2);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_THAT(person.texts(), ElementsAre());
}

INSTANTIATE_TEST_SUITE_P(EachItem, OpeningNew,
                         testing::Values("miDBBrowse", "miTOLURL01", "miTOLURT01", "miTOLUAI01", "miTOLMOD01",
                                         "miTOLRLKS01"),
                         [](const auto& instance) { return std::string(instance.param); });

TEST_F(Opening, TheUpdateWindowIsThereOnce) {
    chooseByKeys("miDBUDDU");
    chooseByKeys("miDBBrowse");
    chooseByClicks("miDBUDDU");
    EXPECT_EQ(loaded("frmDBUDDU"), 1);
    EXPECT_EQ(made, 2);
    const QWidget* window = forms::LoadedForms::find("frmDBUDDU");
    EXPECT_EQ(main.findChild<QMdiArea*>()->activeSubWindow()->widget(), window);
}

TEST_F(Opening, TheUpdateWindowOpensAfreshOnceItWasClosed) {
    chooseByKeys("miDBUDDU");
    forms::LoadedForms::find("frmDBUDDU")->close();
    EXPECT_EQ(loaded("frmDBUDDU"), 0);
    chooseByKeys("miDBUDDU");
    EXPECT_EQ(loaded("frmDBUDDU"), 1);
    EXPECT_EQ(made, 2);
}

class OpeningModal : public Opening, public testing::WithParamInterface<ItemRow> {};

TEST_P(OpeningModal, WaitsForTheWindow) {
    QString seen;
    QTimer::singleShot(0, &main, [&] {
        QWidget* window = QApplication::activeModalWidget();
        ASSERT_NE(window, nullptr);
        seen = window->objectName();
        EXPECT_EQ(window->parentWidget(), &main);
        window->close();
    });
    chooseByKeys(GetParam().name);
    EXPECT_EQ(seen, GetParam().window);
    EXPECT_EQ(loaded(seen), 0);
}

std::vector<ItemRow> modalItems() {
    std::vector<ItemRow> modal;
    std::ranges::copy_if(items, std::back_inserter(modal), [](const ItemRow& item) {
        const std::string_view name = item.name;
        return name == "miPath" || name == "miTOLUTL01" || name == "miNETSET" || name == "miHelpAbout";
    });
    return modal;
}

INSTANTIATE_TEST_SUITE_P(EachItem, OpeningModal, testing::ValuesIn(modalItems()),
                         [](const auto& instance) { return std::string(instance.param.name); });

TEST_F(Opening, HelpStaysUnanswered) {
    chooseByKeys("miHelpContents");
    expectNotReady();
    EXPECT_EQ(made, 0);
}

TEST_F(Opening, TheWindowMenuArrangesTheChildren) {
    chooseByKeys("miDBBrowse");
    chooseByKeys("miTOLMOD01");
    const auto placeOf = [](const char* name) {
        return forms::LoadedForms::find(name)->parentWidget()->pos();
    };
    const QSize area = main.findChild<QMdiArea*>()->viewport()->size();
    chooseByKeys("miHorizontally");
    EXPECT_EQ(placeOf("frmDBPBrowse"), QPoint(0, 0));
    EXPECT_EQ(placeOf("frmTOLMOD01"), QPoint(0, area.height() / 2));
    chooseByClicks("miVertical");
    EXPECT_EQ(placeOf("frmDBPBrowse"), QPoint(0, 0));
    EXPECT_EQ(placeOf("frmTOLMOD01"), QPoint(area.width() / 2, 0));
    chooseByKeys("miCascade");
    EXPECT_EQ(placeOf("frmDBPBrowse"), QPoint(0, 0));
    const QPoint step = placeOf("frmTOLMOD01");
    EXPECT_GT(step.x(), 0);
    EXPECT_EQ(step.x(), step.y());
    EXPECT_LT(step.x(), 60);
}

TEST_F(Opening, AClickOnTheEmptyAreaCascades) {
    chooseByKeys("miDBBrowse");
    chooseByKeys("miTOLMOD01");
    QWidget* viewport = main.findChild<QMdiArea*>()->viewport();
    QTest::mouseClick(viewport, Qt::LeftButton, {}, viewport->rect().bottomRight() - QPoint(5, 5));
    EXPECT_EQ(forms::LoadedForms::find("frmDBPBrowse")->parentWidget()->pos(), QPoint(0, 0));
}

} // namespace
} // namespace tol::test
