// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>

#include <functional>

namespace tol::search_print {
class ReportWindow;
}

namespace tol::test {

/// The person before report windows: while it lives, each one that comes up is looked at, once it is in
/// front, and then closed.
class ReportReader {
  public:
    explicit ReportReader(std::function<void(search_print::ReportWindow&)> look);
    ReportReader(const ReportReader&) = delete;
    ReportReader& operator=(const ReportReader&) = delete;

    int reports = 0; ///< seen so far

  private:
    void lookAtShown();

    std::function<void(search_print::ReportWindow&)> m_look;
    bool m_looking = false;
    QTimer m_timer;
};

} // namespace tol::test
