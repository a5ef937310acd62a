// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QWidget;

namespace tol::search_print {

/// While it lives, what a person does reaches no window but a box that came up since: for a long work
/// that gives way to events so that the windows are painted, before its own window is there. The
/// pointer tells to wait.
class InputPause : public QObject {
  public:
    InputPause();
    InputPause(const InputPause&) = delete;
    InputPause& operator=(const InputPause&) = delete;
    ~InputPause() override;

    bool eventFilter(QObject* receiver, QEvent* event) override;

  private:
    QWidget* m_modalBefore;
};

} // namespace tol::search_print
