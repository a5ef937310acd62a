// SPDX-License-Identifier: MIT
#include "PrintedFolder.h"

#include "support/TestHost.h"

#include <gmock/gmock.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace tol::test {
namespace {

using search_print::ReportWindow;

class frmvdPrintTest : public testing::Test {
  protected:
    PrintedFolder folder;
    TestHost person;
};

TEST_F(frmvdPrintTest, DrawsTheReportBeforeItIsSeen) {
    folder.addRows(120);
    EXPECT_TRUE(withReport(namesAndPlaces(), [](ReportWindow& window) {
        EXPECT_EQ(window.windowTitle(), "Print the List of Names");
        EXPECT_EQ(window.printer().PageCount(), 3);
        EXPECT_EQ(window.lblProcess().text(), "Report Finished, Press 'P' to Print");
        EXPECT_EQ(window.cmdBegin().text(), "&Max View");
        QTest::keyClick(&window, Qt::Key_PageDown);
        EXPECT_EQ(window.printer().PreviewPage(), 2);
        QTest::mouseClick(&window.cmdBegin(), Qt::LeftButton);
    }));
}

} // namespace
} // namespace tol::test
