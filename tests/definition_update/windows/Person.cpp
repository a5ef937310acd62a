// SPDX-License-Identifier: MIT
#include "Person.h"

#include "support/KeepPicture.h"

#include <QTest>

namespace tol::test {

void Person::poke(const QString& name) const {
    const QWidget& widget = control(name);
    QTest::mouseClick(widget.window()->windowHandle(), Qt::LeftButton, {},
                      widget.mapTo(widget.window(), widget.rect().center()));
}

void Person::keepPicture(const QString& name) const {
    test::keepPicture(*m_window.window(), name);
}

} // namespace tol::test
