// SPDX-License-Identifier: MIT
#include "Person.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTest>

namespace tol::test {

void Person::poke(const QString& name) const {
    const QWidget& widget = control(name);
    QTest::mouseClick(widget.window()->windowHandle(), Qt::LeftButton, {},
                      widget.mapTo(widget.window(), widget.rect().center()));
}

void Person::keepPicture(const QString& name) const {
    const QString folder = qEnvironmentVariable("TOL_SCREENSHOTS");
    EXPECT_TRUE(folder.isEmpty() || m_window.window()->grab().save(QDir(folder).filePath(name + ".png")));
}

} // namespace tol::test
