// SPDX-License-Identifier: MIT
#include "PrintedFolder.h"
#include "platform/System.h"
#include "runtime/Conversions.h"
#include "search_print/PreviewWidget.h"
#include "support/TestHost.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QPushButton>
#include <QScreen>
#include <QTest>

namespace tol::test {
namespace {

using namespace search_print;

/// Pictures for the documents, written to the folder that TOL_SCREENSHOTS names.
class ReportScreenshots : public testing::Test {
  protected:
    ReportScreenshots() {
        platform::setClock(
            [] { return runtime::makeDate({.year = 2026, .month = 11, .day = 3, .hour = 9}); });
        folder.addRows(120);
    }
    ~ReportScreenshots() override { platform::setClock({}); }

    static void keep(QWidget& window, const QString& name) {
        const QPixmap picture = window.grab();
        EXPECT_EQ(picture.deviceIndependentSize().toSize(), window.size());
        const QString pictures = qEnvironmentVariable("TOL_SCREENSHOTS");
        EXPECT_TRUE(pictures.isEmpty() || picture.save(QDir(pictures).filePath(name + ".png")));
    }

    static void enlarge(ReportWindow& window) {
        const QSize before = window.size();
        const bool hasRoom = before.width() < window.screen()->availableSize().width();
        window.cmdBegin().click();
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return window.isMaximized() && (window.size() != before || !hasRoom); }));
    }

    PrintedFolder folder;
    TestHost person;
};

TEST_F(ReportScreenshots, TheReportAndItsEnlargedView) {
    EXPECT_TRUE(withReport(namesAndPlaces(), [](ReportWindow& window) {
        keep(window, "report");
        QTest::keyClick(&window, Qt::Key_End);
        keep(window, "report-last-page");
        enlarge(window);
        keep(window, "report-enlarged");
    }));
}

TEST_F(ReportScreenshots, AWideReportEnlarged) {
    PrintRequest request = namesAndPlaces();
    request.WidthList = "4000|9000";
    EXPECT_TRUE(withReport(request, [](ReportWindow& window) {
        keep(window, "report-wide");
        enlarge(window);
        keep(window, "report-wide-enlarged");
    }));
}

TEST_F(ReportScreenshots, AReportThatDidNotLoad) {
    PrintRequest request = namesAndPlaces();
    request.PrintDBName = "NONE.MDB";
    EXPECT_TRUE(withReport(request, [](ReportWindow& window) { keep(window, "report-not-loaded"); }));
}

} // namespace
} // namespace tol::test
