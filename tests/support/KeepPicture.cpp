// SPDX-License-Identifier: MIT
#include "support/KeepPicture.h"

#include "support/AccessibleNames.h"

#include <gmock/gmock.h>

#include <QDir>
#include <QPixmap>
#include <QWidget>

namespace tol::test {

void keepPicture(const QPixmap& picture, const QString& name) {
    const QString folder = qEnvironmentVariable("TOL_SCREENSHOTS");
    EXPECT_TRUE(folder.isEmpty() || picture.save(QDir(folder).filePath(name + ".png"))) << name.toStdString();
}

void keepPicture(QWidget& window, const QString& name) {
    EXPECT_THAT(controlsWithoutName(window), testing::IsEmpty()) << name.toStdString();
    keepPicture(window.grab(), name);
}

} // namespace tol::test
