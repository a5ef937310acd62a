// SPDX-License-Identifier: MIT
#include "forms/windows/MessageBox.h"

#include "runtime/Host.h"
#include "support/BoxAnswerer.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QApplication>
#include <QFontMetrics>
#include <QLabel>
#include <QScreen>
#include <QTest>

namespace tol::forms {
namespace {

using runtime::MsgButtons;
using runtime::MsgIcon;
using runtime::MsgResult;
using testing::ElementsAre;

TEST(MessageBox, ShowsTitleAndTextAsTheyAre) {
    test::BoxAnswerer person;
    showMessageBox("Line 1\n<b>Line 2</b> & more", {MsgIcon::Critical, MsgButtons::Ok}, "Startup Error");
    ASSERT_EQ(person.boxes.size(), 1U);
    EXPECT_EQ(person.boxes[0].title, "Startup Error");
    EXPECT_EQ(person.boxes[0].text, "Line 1\n<b>Line 2</b> & more");
}

TEST(MessageBox, IsWideEnoughForItsTitle) {
    test::BoxAnswerer person;
    int width = 0;
    person.onBox = [&](QMessageBox& box) {
        width = box.width();
        box.close();
    };
    const QString title(40, 'M');
    showMessageBox("x", {}, title.toStdString());
    EXPECT_GT(width, QFontMetrics(QApplication::font()).horizontalAdvance(title) + 100);
}

/// Lines of the text as they stand in the box, each checked to be shown whole.
QStringList shownLines(const std::string& text) {
    test::BoxAnswerer person;
    QStringList lines;
    person.onBox = [&](QMessageBox& box) {
        const auto& label = *box.findChild<QLabel*>("qt_msgbox_label");
        lines = label.text().split('\n');
        EXPECT_FALSE(label.wordWrap());
        EXPECT_TRUE(box.rect().contains(label.geometry()));
        for (const QString& line : lines)
            EXPECT_GE(label.width(), label.fontMetrics().horizontalAdvance(line)) << line.toStdString();
        EXPECT_EQ(box.frameGeometry().size().boundedTo(box.screen()->availableSize()),
                  box.frameGeometry().size());
        box.close();
    };
    showMessageBox(text, {MsgIcon::Critical, MsgButtons::Ok}, "T");
    EXPECT_EQ(person.boxes.at(0).text, text) << "as it is read out";
    return lines;
}

TEST(MessageBox, BreaksALongTextButNoPath) {
    const std::string folder = "C:\\JOB SITES\\NORTH-YARD\\" + std::string(30, 'X') + "\\ZOVNET.MDB";
    const QStringList lines = shownLines("A sentence of quite a number of words that tells of the file " +
                                         folder + " and then goes on to tell a little more.");
    EXPECT_GE(lines.size(), 2);
    EXPECT_EQ(lines.filter(QString::fromStdString(folder)).size(), 1);
}

TEST(MessageBox, GivesALongPathALineOfItsOwn) {
    const QString path = "/srv/" + QString(80, 'x') + "/a b/ZOVNET.MDB";
    const QStringList lines = shownLines("The file " + path.toStdString() + " is missing.");
    const int width = QFontMetrics(QApplication::font()).horizontalAdvance(path);
    if (width < QGuiApplication::primaryScreen()->availableSize().width() - 160) {
        EXPECT_EQ(lines, QStringList({"The file", path, "is missing."}));
    }
    EXPECT_EQ(lines.front(), "The file");
}

TEST(MessageBox, AShortTextHasNoLineEndsButItsOwn) {
    EXPECT_EQ(shownLines("Line 1\n\nThe database C:\\ZOVUSER\\ZOVUSER.MDB  ?").size(), 3);
}

TEST(MessageBox, AClickOnItsTextLeavesTheKeyboardToItsButton) {
    test::BoxAnswerer person;
    person.onBox = [](QMessageBox& box) {
        ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
        QTest::mouseClick(box.findChild<QLabel*>("qt_msgbox_label"), Qt::LeftButton);
        EXPECT_TRUE(box.findChild<QAbstractButton*>("cmdOK")->hasFocus());
        box.close();
    };
    showMessageBox("A text", {}, "T");
    EXPECT_EQ(person.boxes.size(), 1U);
}

TEST(MessageBox, TakesTextForPlainText) {
    test::BoxAnswerer person;
    person.onBox = [](QMessageBox& box) {
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        box.close();
    };
    showMessageBox("<b>x</b>", {}, "T");
    EXPECT_EQ(person.boxes.size(), 1U);
}

TEST(MessageBox, HasTheIconAskedFor) {
    test::BoxAnswerer person;
    for (const MsgIcon icon :
         {MsgIcon::None, MsgIcon::Critical, MsgIcon::Question, MsgIcon::Exclamation, MsgIcon::Information})
        showMessageBox("x", {icon, MsgButtons::Ok}, "T");
    std::vector<QMessageBox::Icon> icons;
    for (const test::SeenBox& box : person.boxes)
        icons.push_back(box.icon);
    EXPECT_THAT(icons, ElementsAre(QMessageBox::NoIcon, QMessageBox::Critical, QMessageBox::Question,
                                   QMessageBox::Warning, QMessageBox::Information));
}

TEST(MessageBox, OffersOk) {
    test::BoxAnswerer person;
    EXPECT_EQ(showMessageBox("x", {MsgIcon::None, MsgButtons::Ok}, "T"), MsgResult::Ok);
    EXPECT_THAT(person.boxes.at(0).buttons, ElementsAre("cmdOK"));
    EXPECT_EQ(person.boxes[0].defaultButton, "cmdOK");
}

TEST(MessageBox, OffersOkAndCancel) {
    test::BoxAnswerer person;
    person.answers = {"cmdOK", "cmdCancel"};
    EXPECT_EQ(showMessageBox("x", {MsgIcon::Question, MsgButtons::OkCancel}, "T"), MsgResult::Ok);
    EXPECT_EQ(showMessageBox("x", {MsgIcon::Question, MsgButtons::OkCancel}, "T"), MsgResult::Cancel);
    EXPECT_THAT(person.boxes.at(0).buttons, ElementsAre("cmdOK", "cmdCancel"));
    EXPECT_EQ(person.boxes[0].defaultButton, "cmdOK");
}

TEST(MessageBox, OffersYesAndNo) {
    test::BoxAnswerer person;
    person.answers = {"cmdYes", "cmdNo"};
    EXPECT_EQ(showMessageBox("x", {MsgIcon::Question, MsgButtons::YesNo}, "T"), MsgResult::Yes);
    EXPECT_EQ(showMessageBox("x", {MsgIcon::Question, MsgButtons::YesNo}, "T"), MsgResult::No);
    EXPECT_THAT(person.boxes.at(0).buttons, ElementsAre("cmdYes", "cmdNo"));
    EXPECT_EQ(person.boxes[0].defaultButton, "cmdYes");
}

MsgResult answeredByKey(MsgButtons buttons, Qt::Key key) {
    test::BoxAnswerer person;
    person.onBox = [key](QMessageBox& box) { QTest::keyClick(&box, key); };
    return showMessageBox("x", {MsgIcon::Question, buttons}, "T");
}

TEST(MessageBox, EscIsOkWhereThatIsTheOnlyAnswerAndElseCancel) {
    EXPECT_EQ(answeredByKey(MsgButtons::Ok, Qt::Key_Escape), MsgResult::Ok);
    EXPECT_EQ(answeredByKey(MsgButtons::OkCancel, Qt::Key_Escape), MsgResult::Cancel);
}

TEST(MessageBox, EnterIsTheDefaultButton) {
    EXPECT_EQ(answeredByKey(MsgButtons::OkCancel, Qt::Key_Return), MsgResult::Ok);
    EXPECT_EQ(answeredByKey(MsgButtons::YesNo, Qt::Key_Return), MsgResult::Yes);
}

TEST(MessageBox, LettersAnswerYesAndNo) {
    EXPECT_EQ(answeredByKey(MsgButtons::YesNo, Qt::Key_Y), MsgResult::Yes);
    EXPECT_EQ(answeredByKey(MsgButtons::YesNo, Qt::Key_N), MsgResult::No);
}

TEST(MessageBox, YesOrNoCannotBeEvaded) {
    test::BoxAnswerer person;
    bool stayed = false;
    person.onBox = [&](QMessageBox& box) {
        QTest::keyClick(&box, Qt::Key_Escape);
        box.close();
        stayed = box.isVisible();
        box.findChild<QAbstractButton*>("cmdNo")->click();
    };
    EXPECT_EQ(showMessageBox("x", {MsgIcon::Question, MsgButtons::YesNo}, "T"), MsgResult::No);
    EXPECT_TRUE(stayed);
}

} // namespace
} // namespace tol::forms
