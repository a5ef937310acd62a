// SPDX-License-Identifier: MIT
#include "StartedProgram.h"

#include <QDir>
#include <QMenu>
#include <QPainter>
#include <QTest>

namespace tol::test {
namespace {

// Pictures for the documents are written to the folder that TOL_SCREENSHOTS names.
void keep(const QPixmap& picture, const QString& name) {
    const QString folder = qEnvironmentVariable("TOL_SCREENSHOTS");
    EXPECT_TRUE(folder.isEmpty() || picture.save(QDir(folder).filePath(name + ".png")));
}

TEST_F(Start, PictureOfTheSplash) {
    shell::frmTOLMAIN main;
    main.load();
    const QPixmap picture = splash()->grab();
    EXPECT_EQ(picture.deviceIndependentSize().toSize(), QSize(480, 240));
    keep(picture, "splash");
}

TEST_F(Started, PictureOfTheMainWindowWithAMenuOpen) {
    QPixmap picture = main.grab();
    EXPECT_EQ(picture.deviceIndependentSize().toSize(), main.size());
    QTest::keyClick(&main, Qt::Key_U, Qt::AltModifier);
    QMenu& menu = *main.findChild<QMenu*>("mnuUtilities");
    ASSERT_TRUE(menu.isVisible());
    QPainter painter(&picture);
    painter.drawPixmap(main.mapFromGlobal(menu.pos()), menu.grab());
    painter.end();
    menu.close();
    keep(picture, "main-window");
}

} // namespace
} // namespace tol::test
