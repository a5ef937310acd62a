// SPDX-License-Identifier: MIT
#include "StartedProgram.h"

#include "forms/windows/LoadedForms.h"

#include <QTest>

namespace tol::test {

QWidget* splash() {
    return forms::LoadedForms::find("frmTOLSplash");
}

void tick(shell::frmTOLMAIN& main, int times) {
    auto* timer = main.findChild<QTimer*>("Timer1");
    int ticked = 0;
    const auto counting = QObject::connect(timer, &QTimer::timeout, [&] {
        if (++ticked == times)
            timer->setInterval(500);
    });
    timer->setInterval(0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return ticked >= times; }));
    QObject::disconnect(counting);
}

Started::Started() {
    main.load();
    tick(main, 2);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&main));
}

} // namespace tol::test
