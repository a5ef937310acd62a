// SPDX-License-Identifier: MIT
#include "forms/windows/Form.h"

#include "forms/controls/Controls.h"
#include "forms/events/EventProcedure.h"
#include "forms/windows/LoadedForms.h"
#include "forms/windows/MessageBox.h"
#include "support/BoxAnswerer.h"

#include <gmock/gmock.h>

#include <QEventLoop>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <algorithm>

namespace tol::forms {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Recorded : public Form {
  public:
    Recorded() : Form("frmTest") { setScaleSize(3000, 1500); }

    std::vector<std::string> events;
    std::vector<int> keys;
    bool unloadInLoad = false, swallow = false, mayBeClosed = true;

  protected:
    [[nodiscard]] bool mayClose() const override { return mayBeClosed; }
    void onLoad() override {
        events.emplace_back("Load");
        if (unloadInLoad)
            unload();
    }
    void onActivate() override { events.emplace_back("Activate"); }
    void onUnload() override { events.emplace_back("Unload"); }
    void onKeyDown(KeyPress& key) override {
        keys.push_back(key.code);
        if (swallow)
            key.code = keyNone;
    }
};

TEST(Form, GoesThroughItsLife) {
    Recorded form;
    form.showModeless();
    EXPECT_TRUE(form.isVisible());
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    form.unload();
    EXPECT_FALSE(form.isVisible());
    EXPECT_THAT(form.events, ElementsAre("Load", "Activate", "Unload"));
}

TEST(Form, LoadsAndUnloadsOnce) {
    Recorded form;
    form.unload();
    form.load();
    form.load();
    form.unload();
    form.unload();
    EXPECT_THAT(form.events, ElementsAre("Load", "Unload"));
}

TEST(Form, LoadsAfreshAfterAnUnload) {
    Recorded form;
    form.load();
    form.unload();
    form.load();
    EXPECT_THAT(form.events, ElementsAre("Load", "Unload", "Load"));
}

TEST(Form, ClosingUnloads) {
    Recorded form;
    form.showModeless();
    form.close();
    EXPECT_FALSE(form.isLoaded());
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.events.back(), "Unload");
}

TEST(Form, ABusyFormIsUnloadedWhenItIsDone) {
    Recorded form;
    form.showModeless();
    {
        const Form::Busy outer(form);
        {
            const Form::Busy inner(form);
            form.unload();
            EXPECT_FALSE(form.close());
        }
        EXPECT_TRUE(form.isVisible());
        EXPECT_TRUE(form.isLoaded());
    }
    EXPECT_FALSE(form.isVisible());
    EXPECT_THAT(form.events, ElementsAre("Load", "Unload"));
    form.load();
    { const Form::Busy again(form); }
    EXPECT_TRUE(form.isLoaded());
}

TEST(Form, ADerivedFormMayRefuseToBeClosed) {
    Recorded form;
    form.mayBeClosed = false;
    form.showModeless();
    EXPECT_FALSE(form.close());
    EXPECT_TRUE(form.isVisible());
    form.unload();
    EXPECT_FALSE(form.isVisible());
    EXPECT_TRUE(form.close());
}

TEST(Form, IsNotShownWhenItsLoadUnloadsIt) {
    Recorded form;
    form.unloadInLoad = true;
    form.showModeless();
    EXPECT_FALSE(form.isVisible());
    form.showModal(nullptr);
    EXPECT_THAT(form.events, ElementsAre("Load", "Unload", "Load", "Unload"));
}

TEST(Form, IsAmongTheLoadedFormsWhileLoaded) {
    EXPECT_EQ(LoadedForms::Count(), 0);
    Recorded form;
    EXPECT_EQ(LoadedForms::find("frmTest"), nullptr);
    form.load();
    ASSERT_EQ(LoadedForms::Count(), 1);
    EXPECT_EQ(&LoadedForms::Item(0), &form);
    EXPECT_EQ(LoadedForms::find("frmTest"), &form);
    EXPECT_EQ(LoadedForms::find("FRMTEST"), nullptr);
    form.unload();
    EXPECT_EQ(LoadedForms::Count(), 0);
    {
        Recorded neverUnloaded;
        neverUnloaded.load();
    }
    EXPECT_EQ(LoadedForms::Count(), 0);
}

TEST(Form, TheEventLoopEndsWithTheLastForm) {
    Recorded first, last;
    first.load();
    last.load();
    bool stillRunning = false;
    QTimer::singleShot(0, [&] { first.unload(); });
    QTimer::singleShot(30, [&] {
        stillRunning = true;
        last.unload();
    });
    EXPECT_EQ(QCoreApplication::exec(), 0);
    EXPECT_TRUE(stillRunning);
}

TEST(Form, ModalReturnsWhenItIsUnloaded) {
    QWidget owner;
    owner.show();
    Recorded form;
    bool blocked = false;
    QTimer::singleShot(0, [&] {
        blocked = form.isVisible() && QApplication::activeModalWidget() == &form;
        form.close();
    });
    form.showModal(&owner);
    EXPECT_TRUE(blocked);
    EXPECT_FALSE(form.isLoaded());
    form.setParent(nullptr);
}

TEST(Form, ModalComesUpInTheMiddleOfItsOwnersWindow) {
    QWidget window;
    window.setGeometry(100, 80, 500, 400);
    QWidget owner(&window);
    window.show();
    Recorded form;
    QPoint centre;
    QTimer::singleShot(0, [&] {
        centre = form.geometry().center();
        form.close();
    });
    form.showModal(&owner);
    EXPECT_LE((centre - window.frameGeometry().center()).manhattanLength(), 4); // but for the frame's edges
    form.setParent(nullptr);
}

TEST(Form, ModalStaysOnTheScreen) {
    QWidget owner;
    owner.move(-2000, -2000);
    Recorded form;
    QPoint place;
    QTimer::singleShot(0, [&] {
        place = form.pos();
        form.close();
    });
    form.showModal(&owner);
    EXPECT_EQ(place, QGuiApplication::primaryScreen()->availableGeometry().topLeft());
    form.setParent(nullptr);
}

TEST(Form, HasAFixedSizeUnlessToldOtherwise) {
    Recorded fixed, sizable;
    sizable.setSizable(true);
    fixed.showModeless();
    sizable.showModeless();
    EXPECT_EQ(fixed.size(), QSize(200, 100));
    EXPECT_EQ(fixed.minimumSize(), fixed.maximumSize());
    EXPECT_EQ(sizable.size(), QSize(200, 100));
    EXPECT_LT(sizable.minimumSize().width(), sizable.maximumSize().width());
}

TEST(Form, SeesKeysWhenNoControlHasTheFocus) {
    Recorded form;
    form.showModeless();
    QTest::keyClick(&form, Qt::Key_F10);
    EXPECT_THAT(form.keys, ElementsAre(keyF1 + 9));
}

TEST(Form, SeesKeysOfItsControlsOnlyWithKeyPreview) {
    Recorded form;
    QLineEdit box(&form);
    form.showModeless();
    QTest::keyClick(&box, Qt::Key_A);
    EXPECT_THAT(form.keys, IsEmpty());
    form.setKeyPreview(true);
    QTest::keyClick(&box, Qt::Key_B);
    EXPECT_THAT(form.keys, ElementsAre('B'));
    EXPECT_EQ(box.text(), "ab");
}

TEST(Form, MaySwallowAKey) {
    Recorded form;
    QLineEdit box(&form);
    form.setKeyPreview(true);
    form.swallow = true;
    form.showModeless();
    QTest::keyClick(&box, Qt::Key_A);
    EXPECT_EQ(box.text(), "");
}

TEST(Form, SeesAKeyOnceThoughNoControlTakesIt) {
    Recorded form;
    QWidget middle(&form);
    QWidget control(&middle);
    form.setKeyPreview(true);
    form.showModeless();
    QTest::keyClick(&control, Qt::Key_F5);
    EXPECT_EQ(form.keys.size(), 1U);
}

TEST(Form, DoesNotSeeKeysOfABoxBeforeIt) {
    Recorded form;
    int clicks = 0;
    form.setKeyPreview(true);
    form.setCancelButton(&addButton(form, "cmdExit", "E&xit", {0, 0, 1500, 375}, [&] { ++clicks; }));
    form.showModeless();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    test::BoxAnswerer person;
    person.onBox = [](QMessageBox& box) {
        EXPECT_NE(Form::of(&box), nullptr);
        QTest::keyClick(box.defaultButton(), Qt::Key_X, Qt::AltModifier);
        QTest::keyClick(box.defaultButton(), Qt::Key_Escape);
    };
    showMessageBox("text", {}, "title");
    EXPECT_EQ(person.boxes.size(), 1U);
    EXPECT_THAT(form.keys, IsEmpty());
    EXPECT_EQ(clicks, 0);
}

TEST(Form, SeesALetterWithAltBeforeItsButtonDoes) {
    Recorded form;
    int clicks = 0;
    QPushButton& button = addButton(form, "cmdAdd", "&Add", {0, 0, 1500, 375}, [&] { ++clicks; });
    form.setKeyPreview(true);
    form.showModeless();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    QTest::keyClick(&button, Qt::Key_A, Qt::AltModifier);
    EXPECT_EQ(clicks, 1);
    form.swallow = true;
    QTest::keyClick(&button, Qt::Key_A, Qt::AltModifier);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(std::ranges::count(form.keys, Qt::Key_A), 2); // beside the Alt keys
}

TEST(Form, OfAWidgetIsTheOneItLiesOn) {
    Recorded form;
    QWidget middle(&form);
    QWidget control(&middle);
    QWidget elsewhere;
    EXPECT_EQ(Form::of(&control), &form);
    EXPECT_EQ(Form::of(&form), &form);
    EXPECT_EQ(Form::of(&elsewhere), nullptr);
    EXPECT_EQ(Form::of(nullptr), nullptr);
}

} // namespace
} // namespace tol::forms
