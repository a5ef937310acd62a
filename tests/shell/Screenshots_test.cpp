// SPDX-License-Identifier: MIT
#include "StartedProgram.h"
#include "support/AccessibleNames.h"
#include "support/KeepPicture.h"

#include <gmock/gmock.h>

#include <QMenu>
#include <QPainter>
#include <QTest>

namespace tol::test {
namespace {

TEST_F(Start, PictureOfTheSplash) {
    shell::frmTOLMAIN main;
    main.load();
    const QPixmap picture = splash()->grab();
    EXPECT_EQ(picture.deviceIndependentSize().toSize(), QSize(480, 240));
    EXPECT_THAT(controlsWithoutName(*splash()), testing::IsEmpty());
    keepPicture(picture, "splash");
}

TEST_F(Started, PictureOfTheMainWindowWithAMenuOpen) {
    QPixmap picture = main.grab();
    EXPECT_EQ(picture.deviceIndependentSize().toSize(), main.size());
    EXPECT_THAT(controlsWithoutName(main), testing::IsEmpty());
    QTest::keyClick(&main, Qt::Key_U, Qt::AltModifier);
    QMenu& menu = *main.findChild<QMenu*>("mnuUtilities");
    ASSERT_TRUE(menu.isVisible());
    QPainter painter(&picture);
    painter.drawPixmap(main.mapFromGlobal(menu.pos()), menu.grab());
    painter.end();
    menu.close();
    keepPicture(picture, "main-window");
}

} // namespace
} // namespace tol::test
