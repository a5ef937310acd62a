// SPDX-License-Identifier: MIT
#include "support/ReportReader.h"

#include "forms/windows/LoadedForms.h"
#include "search_print/ReportWindow.h"

#include <gtest/gtest.h>

#include <QScopedValueRollback>
#include <QTest>

namespace tol::test {
namespace {

search_print::ReportWindow* shownReport() {
    for (int position = 0; position < forms::LoadedForms::Count(); ++position) {
        auto* window = dynamic_cast<search_print::ReportWindow*>(&forms::LoadedForms::Item(position));
        if (window != nullptr && window->isVisible())
            return window;
    }
    return nullptr;
}

} // namespace

ReportReader::ReportReader(std::function<void(search_print::ReportWindow&)> look) : m_look(std::move(look)) {
    m_timer.callOnTimeout([this] { lookAtShown(); });
    m_timer.start(5);
}

void ReportReader::lookAtShown() {
    search_print::ReportWindow* window = shownReport();
    if (window == nullptr || m_looking)
        return;
    const QScopedValueRollback looking(m_looking, true);
    ++reports;
    EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    m_look(*window);
    window->unload();
}

} // namespace tol::test
