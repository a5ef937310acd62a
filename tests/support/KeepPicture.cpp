// SPDX-License-Identifier: MIT
#include "support/KeepPicture.h"

#include "support/AccessibleNames.h"

#include <gmock/gmock.h>

#include <QDir>
#include <QLabel>
#include <QPixmap>
#include <QRegularExpression>
#include <QWidget>

namespace tol::test {
namespace {

/// The headings of lists that are wider than their columns.
std::vector<std::string> cutHeadings(const QWidget& window) {
    std::vector<std::string> cut;
    for (const QLabel* label : window.findChildren<QLabel*>(QRegularExpression("^lblH")))
        if (label->isVisible() && label->sizeHint().width() > label->width())
            cut.push_back(label->text().toStdString());
    return cut;
}

} // namespace

void keepPicture(const QPixmap& picture, const QString& name) {
    const QString folder = qEnvironmentVariable("TOL_SCREENSHOTS");
    EXPECT_TRUE(folder.isEmpty() || picture.save(QDir(folder).filePath(name + ".png"))) << name.toStdString();
}

void keepPicture(QWidget& window, const QString& name) {
    EXPECT_THAT(controlsWithoutName(window), testing::IsEmpty()) << name.toStdString();
    EXPECT_THAT(cutHeadings(window), testing::IsEmpty()) << name.toStdString();
    keepPicture(window.grab(), name);
}

} // namespace tol::test
