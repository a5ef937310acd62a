// SPDX-License-Identifier: MIT
#include "forms/windows/MdiForm.h"

#include "forms/controls/Controls.h"
#include "forms/controls/TextBox.h"
#include "forms/events/EventProcedure.h"
#include "forms/windows/Form.h"
#include "forms/windows/LoadedForms.h"

#include <gmock/gmock.h>

#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QTest>
#include <QTimer>

namespace tol::forms {
namespace {

using testing::ElementsAre;

class Parent : public MdiForm {
  public:
    Parent() : MdiForm("frmParent") {
        setSize(11250, 9000);
        load();
        show();
    }
    std::vector<std::string> events;

  protected:
    void onLoad() override { events.emplace_back("Load"); }
    void onUnload() override { events.emplace_back("Unload"); }
    void onClick() override { events.emplace_back("Click"); }
};

class Child : public Form {
  public:
    explicit Child(Parent& parent, const QString& name = "frmChild") : Form(name), m_parent(parent) {
        setScaleSize(3000, 1500);
    }
    bool mayBeClosed = true;

  protected:
    [[nodiscard]] bool mayClose() const override { return mayBeClosed; }
    void onActivate() override { m_parent.events.push_back("Activate " + objectName().toStdString()); }
    void onUnload() override { m_parent.events.push_back("Unload " + objectName().toStdString()); }

  private:
    Parent& m_parent;
};

class Mdi : public testing::Test {
  protected:
    Child& add(const QString& name, bool sizable = false) {
        auto child = std::make_unique<Child>(parent, name);
        child->setSizable(sizable);
        Child& shown = *child;
        parent.showChild(std::move(child));
        return shown;
    }
    static QMdiSubWindow& frameOf(const Form& form) {
        return *dynamic_cast<QMdiSubWindow*>(form.parentWidget());
    }
    [[nodiscard]] QSize area() const { return parent.findChild<QMdiArea*>("mdiArea")->viewport()->size(); }

    Parent parent;
};

TEST_F(Mdi, AChildIsCentred) {
    const QMdiSubWindow& frame = frameOf(add("frmChild"));
    EXPECT_TRUE(frame.isVisible());
    EXPECT_EQ(frame.x(), (area().width() - frame.width()) / 2);
    EXPECT_EQ(frame.y(), (area().height() - frame.height()) / 2);
}

TEST_F(Mdi, AChildsInsideHasTheSizeThatItAskedFor) {
    EXPECT_EQ(add("frmFixed").size(), QSize(200, 100));
    EXPECT_EQ(add("frmSizable", true).size(), QSize(200, 100));
}

TEST_F(Mdi, AFixedChildCannotBeSizedOrMaximised) {
    const QMdiSubWindow& fixed = frameOf(add("frmFixed"));
    EXPECT_EQ(fixed.minimumSize(), fixed.maximumSize());
    EXPECT_FALSE(fixed.windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
    EXPECT_TRUE(frameOf(add("frmSizable", true)).windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
}

TEST_F(Mdi, ScaleSizeIsThatOfTheArea) {
    EXPECT_EQ(parent.scaleWidth(), area().width() * 15);
    EXPECT_EQ(parent.scaleHeight(), area().height() * 15);
}

TEST_F(Mdi, TheSizeOfTheWindowIsThatWithItsFrame) {
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&parent));
    EXPECT_NE(parent.frameGeometry().size(), parent.size()) << "the platform has frames";
    EXPECT_EQ(parent.frameGeometry().size(), QSize(750, 600));
    parent.setSize(9000, 7500);
    EXPECT_EQ(parent.frameGeometry().size(), QSize(600, 500));
    parent.hide();
    parent.setSize(1500000, 1500000);
    parent.show();
    EXPECT_EQ(parent.frameGeometry().size(), parent.screen()->availableSize());
}

TEST_F(Mdi, AChildTooLargeForTheAreaCanBeScrolled) {
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&parent));
    auto made = std::make_unique<Child>(parent, "frmLarge");
    Child& large = *made;
    large.setScaleSize(15000, 15000);
    QPushButton& first = addButton(large, "cmdFirst", "First", {0, 0, 1500, 375}, [] {});
    QPushButton& last = addButton(large, "cmdLast", "Last", {13500, 14600, 1500, 375}, [] {});
    large.setWindowTitle("Large");
    parent.showChild(std::move(made));
    ASSERT_TRUE(QTest::qWaitForWindowActive(&parent));
    auto& view = dynamic_cast<QScrollArea&>(*large.parentWidget()->parentWidget());
    QPointer<QMdiSubWindow> frame = dynamic_cast<QMdiSubWindow*>(view.parentWidget());
    EXPECT_EQ(frame->geometry(), QRect(QPoint(), area()));
    EXPECT_EQ(frame->windowTitle(), "Large");
    EXPECT_EQ(large.size(), QSize(1000, 1000));
    const auto isInSight = [&](const QWidget& control) {
        return view.viewport()->rect().contains(
            QRect(control.mapTo(view.viewport(), QPoint()), control.size()));
    };
    last.setFocus();
    EXPECT_TRUE(isInSight(last));
    first.setFocus();
    EXPECT_TRUE(isInSight(first) && !isInSight(last));
    EXPECT_THAT(parent.events, ElementsAre("Load", "Activate frmLarge"));
    frame->close();
    EXPECT_EQ(parent.events.back(), "Unload frmLarge");
    EXPECT_TRUE(QTest::qWaitFor([&] { return frame.isNull(); }));
}

TEST_F(Mdi, TheFrameKeepsNoFocusForItself) {
    Child& child = add("frmChild");
    QPushButton& first = addButton(child, "cmdFirst", "First", {0, 0, 1500, 375}, [] {});
    first.show();
    QMdiSubWindow& frame = frameOf(child);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&parent));
    frame.setFocus();
    QTest::qWait(10);
    frame.setFocus(); // what Qt had noted of the focus is used up
    EXPECT_TRUE(QTest::qWaitFor([&] { return first.hasFocus(); }));
}

TEST_F(Mdi, AChildTooLargeForTheAreaIsNotClosedWhileItMayNotBe) {
    auto made = std::make_unique<Child>(parent, "frmLarge");
    Child& large = *made;
    large.setScaleSize(15000, 15000);
    large.mayBeClosed = false;
    parent.showChild(std::move(made));
    EXPECT_FALSE(parent.close());
    EXPECT_FALSE(large.parentWidget()->parentWidget()->parentWidget()->close());
    EXPECT_TRUE(large.isLoaded() && large.isVisible());
    large.mayBeClosed = true;
    EXPECT_TRUE(parent.close());
    EXPECT_FALSE(large.isLoaded());
}

TEST_F(Mdi, TiledHorizontallyTheyLieOneBelowTheOther) {
    for (const char* name : {"frmA", "frmB", "frmC"})
        add(name, true);
    parent.arrange(Arrangement::TileHorizontally);
    int top = 0;
    for (const char* name : {"frmA", "frmB", "frmC"}) {
        const QRect place = frameOf(*dynamic_cast<Form*>(LoadedForms::find(name))).geometry();
        EXPECT_EQ(place.left(), 0);
        EXPECT_EQ(place.width(), area().width());
        EXPECT_EQ(place.top(), top);
        top = place.bottom() + 1;
    }
    EXPECT_EQ(top, area().height());
}

TEST_F(Mdi, TiledVerticallyTheyLieSideBySide) {
    for (const char* name : {"frmA", "frmB", "frmC"})
        add(name, true);
    parent.arrange(Arrangement::TileVertically);
    int left = 0;
    for (const char* name : {"frmA", "frmB", "frmC"}) {
        const QRect place = frameOf(*dynamic_cast<Form*>(LoadedForms::find(name))).geometry();
        EXPECT_EQ(place.top(), 0);
        EXPECT_EQ(place.height(), area().height());
        EXPECT_EQ(place.left(), left);
        left = place.right() + 1;
    }
    EXPECT_EQ(left, area().width());
}

TEST_F(Mdi, TilingMovesFixedChildrenOnly) {
    Child& first = add("frmA");
    Child& second = add("frmB");
    const QSize before = frameOf(first).size();
    parent.arrange(Arrangement::TileHorizontally);
    EXPECT_EQ(frameOf(first).geometry(), QRect(QPoint(0, 0), before));
    EXPECT_EQ(frameOf(second).geometry(), QRect(QPoint(0, area().height() / 2), before));
}

TEST_F(Mdi, CascadeStepsDownAndTheLastLiesOnTop) {
    Child& first = add("frmA", true);
    Child& second = add("frmB");
    parent.arrange(Arrangement::Cascade);
    EXPECT_EQ(frameOf(first).geometry(), QRect(QPoint(0, 0), area() * 2 / 3));
    EXPECT_GT(frameOf(second).x(), 0);
    EXPECT_EQ(frameOf(second).x(), frameOf(second).y());
    EXPECT_EQ(second.size(), QSize(200, 100));
    EXPECT_EQ(parent.findChild<QMdiArea*>()->activeSubWindow(), &frameOf(second));
}

TEST_F(Mdi, CascadeStartsAnewAtTheEdge) {
    std::vector<Child*> children;
    for (int i = 0; i < 40; ++i)
        children.push_back(&add(QString("frm%1").arg(i)));
    parent.arrange(Arrangement::Cascade);
    int stairs = 0;
    for (const Child* child : children) {
        const QRect place = frameOf(*child).geometry();
        EXPECT_TRUE(QRect(QPoint(0, 0), area()).contains(place)) << place.x() << ' ' << place.y();
        stairs += place.topLeft() == QPoint(0, 0) ? 1 : 0;
    }
    EXPECT_GE(stairs, 2);
    EXPECT_LT(stairs, 10);
}

TEST_F(Mdi, ArrangingLeavesMinimisedChildrenAndRestoresMaximisedOnes) {
    Child& minimised = add("frmA", true);
    Child& maximised = add("frmB", true);
    frameOf(minimised).showMinimized();
    frameOf(maximised).showMaximized();
    parent.arrange(Arrangement::TileVertically);
    EXPECT_TRUE(frameOf(minimised).isMinimized());
    EXPECT_FALSE(frameOf(maximised).isMaximized());
    EXPECT_EQ(frameOf(maximised).geometry(), QRect(QPoint(0, 0), area()));
}

TEST_F(Mdi, ArrangingNothingDoesNothing) {
    parent.arrange(Arrangement::Cascade);
    parent.arrange(Arrangement::TileHorizontally);
    EXPECT_THAT(parent.events, ElementsAre("Load"));
}

TEST_F(Mdi, AClickIsOneOnTheEmptyArea) {
    const Child& child = add("frmChild");
    QWidget* viewport = parent.findChild<QMdiArea*>()->viewport();
    parent.events.clear();
    QTest::mouseClick(&frameOf(child), Qt::LeftButton, {}, {100, 50});
    EXPECT_EQ(parent.events, std::vector<std::string>());
    QTest::mouseClick(viewport, Qt::LeftButton, {}, {5, 5});
    EXPECT_THAT(parent.events, ElementsAre("Click"));
}

TEST_F(Mdi, ChildrenAreToldWhenTheyComeToTheFront) {
    const Child& first = add("frmA");
    add("frmB");
    parent.events.clear();
    parent.findChild<QMdiArea*>()->setActiveSubWindow(&frameOf(first));
    EXPECT_THAT(parent.events, ElementsAre("Activate frmA"));
}

TEST_F(Mdi, AMinimisedChildHearsNothingAndKeepsItsFocus) {
    Child& child = add("frmChild");
    TextBox& first = TextBox::add(child, "txtFIRST", 9, {0, 0, 1500, 315});
    TextBox& second = TextBox::add(child, "txtSECOND", 9, {0, 450, 1500, 315});
    child.show();
    first.show();
    second.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&parent));
    first.setFocus();
    int events = 0;
    for (TextBox* box : {&first, &second}) {
        box->onGotFocus([&] { ++events; });
        box->onLostFocus([&] { ++events; });
    }
    frameOf(child).showMinimized();
    EXPECT_EQ(events, 0);
    frameOf(child).showNormal();
    EXPECT_TRUE(first.hasFocus());
    EXPECT_EQ(events, 0);
    QTest::keyClick(&first, Qt::Key_Tab);
    EXPECT_EQ(events, 2);
}

TEST_F(Mdi, AFocusGivenBehindAnotherChildWaitsUntilItComesToTheFront) {
    Child& behind = add("frmA");
    TextBox& first = TextBox::add(behind, "txtFIRST", 9, {0, 0, 1500, 315});
    TextBox& second = TextBox::add(behind, "txtSECOND", 9, {0, 450, 1500, 315});
    first.show();
    second.show();
    Child& inFront = add("frmB");
    TextBox& typedIn = TextBox::add(inFront, "txtTYPED", 9, {0, 0, 1500, 315});
    typedIn.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&parent));
    typedIn.setFocus();
    behind.focusOn(second);
    EXPECT_TRUE(typedIn.hasFocus());
    EXPECT_EQ(parent.findChild<QMdiArea*>()->activeSubWindow(), &frameOf(inFront));
    parent.findChild<QMdiArea*>()->setActiveSubWindow(&frameOf(behind));
    EXPECT_TRUE(second.hasFocus());
    behind.focusOn(first);
    EXPECT_TRUE(first.hasFocus());
}

TEST_F(Mdi, AChildIsToldThatAModalWindowAboveItIsGone) {
    Child& child = add("frmA");
    parent.events.clear();
    Form modal("frmModal");
    QTimer::singleShot(0, &modal, [&] { modal.close(); });
    modal.showModal(&child);
    EXPECT_THAT(parent.events, ElementsAre("Activate frmA"));
    modal.setParent(nullptr);
}

TEST_F(Mdi, ALetterWithAltPressesTheChildsButtonRatherThanOpensAMenu) {
    QMenu& menu = *parent.menuBar()->addMenu("&Utilities");
    menu.addAction("Nothing");
    Child& child = add("frmChild");
    int clicks = 0;
    QPushButton& button = addButton(child, "cmdUpdate", "&Update", {0, 0, 1500, 375}, [&] { ++clicks; });
    QPushButton& other = addButton(child, "cmdExit", "E&xit", {0, 450, 1500, 375}, [] {});
    button.show();
    other.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&parent));
    other.setFocus();
    QTest::keyClick(&other, Qt::Key_U, Qt::AltModifier);
    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(button.hasFocus());
    EXPECT_FALSE(menu.isVisible());
    button.hide();
    QTest::keyClick(&other, Qt::Key_U, Qt::AltModifier);
    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(menu.isVisible());
    menu.close();
}

TEST_F(Mdi, ShownAgainAMinimisedChildComesBackToTheFront) {
    Child& first = add("frmA");
    add("frmB");
    frameOf(first).showMinimized();
    first.showModeless();
    EXPECT_FALSE(frameOf(first).isMinimized());
    EXPECT_EQ(parent.findChild<QMdiArea*>()->activeSubWindow(), &frameOf(first));
    EXPECT_EQ(first.size(), QSize(200, 100));
}

TEST_F(Mdi, AClosedChildIsUnloadedAndThenGone) {
    QPointer<Form> child = &add("frmChild");
    QPointer<QMdiSubWindow> frame = &frameOf(*child);
    parent.events.clear();
    frame->close();
    EXPECT_THAT(parent.events, ElementsAre("Unload frmChild"));
    EXPECT_EQ(LoadedForms::find("frmChild"), nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&] { return child.isNull() && frame.isNull(); }));
    EXPECT_TRUE(parent.findChild<QMdiArea*>()->subWindowList().isEmpty());
}

TEST_F(Mdi, AChildThatUnloadsItselfLivesUntilItsProcedureHasReturned) {
    QPointer<Form> child = &add("frmChild");
    bool alive = false;
    runEvent(*child, [&] {
        child->unload();
        for (int i = 0; i < 5; ++i)
            QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        alive = !child.isNull();
    });
    EXPECT_TRUE(alive);
    EXPECT_TRUE(QTest::qWaitFor([&] { return child.isNull(); }));
}

TEST_F(Mdi, ClosingTheParentUnloadsTheChildrenFirst) {
    add("frmA");
    add("frmB");
    parent.events.clear();
    parent.close();
    EXPECT_FALSE(parent.isVisible());
    const std::vector<std::string> events = parent.events;
    EXPECT_THAT(events, ElementsAre("Unload frmA", "Unload frmB", "Unload"));
    EXPECT_EQ(LoadedForms::Count(), 0);
}

TEST_F(Mdi, StaysWhileAChildMayNotBeClosed) {
    Child& child = add("frmChild");
    child.mayBeClosed = false;
    parent.events.clear();
    EXPECT_FALSE(parent.close());
    EXPECT_FALSE(frameOf(child).close());
    EXPECT_TRUE(parent.isVisible() && child.isVisible());
    EXPECT_THAT(parent.events, ElementsAre());
    child.mayBeClosed = true;
    EXPECT_TRUE(parent.close());
    EXPECT_THAT(parent.events, ElementsAre("Unload frmChild", "Unload"));
}

TEST_F(Mdi, StaysWhileAChildIsBusy) {
    Child& child = add("frmChild");
    parent.events.clear();
    {
        const Form::Busy busy(child);
        EXPECT_FALSE(parent.close());
        EXPECT_TRUE(parent.isVisible() && child.isVisible());
        EXPECT_FALSE(frameOf(child).close());
        EXPECT_TRUE(child.isVisible());
        EXPECT_THAT(parent.events, ElementsAre());
    }
    EXPECT_FALSE(child.isVisible());
    EXPECT_TRUE(parent.close());
    EXPECT_THAT(parent.events, ElementsAre("Unload frmChild", "Unload"));
}

} // namespace
} // namespace tol::forms
