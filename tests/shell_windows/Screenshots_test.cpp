// SPDX-License-Identifier: MIT
#include "StartedProgram.h"

#include "forms/LoadedForms.h"

#include <QDir>
#include <QTest>

namespace tol::test {
namespace {

// Pictures for the documents are written to the folder that TOL_SCREENSHOTS names.
void expectPicture(QWidget& window, const QString& name) {
    const QPixmap picture = window.grab();
    EXPECT_EQ(picture.deviceIndependentSize().toSize(), window.size());
    const QString folder = qEnvironmentVariable("TOL_SCREENSHOTS");
    EXPECT_TRUE(folder.isEmpty() || picture.save(QDir(folder).filePath(name + ".png")));
}

TEST_F(Start, PictureOfTheSplash) {
    shell::frmTOLMAIN main;
    main.load();
    expectPicture(*splash(), "splash");
}

TEST_F(Started, PictureOfTheMainWindow) {
    expectPicture(main, "main-window");
}

TEST_F(Started, PictureOfTheMenu) {
    QTest::keyClick(&main, Qt::Key_U, Qt::AltModifier);
    QMenu& menu = *main.findChild<QMenu*>("mnuUtilities");
    ASSERT_TRUE(menu.isVisible());
    expectPicture(menu, "main-menu-utilities");
    menu.close();
}

} // namespace
} // namespace tol::test
