// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>

#include <string>

namespace tol::forms {

/// The one application object. It reads no command line, looks the same everywhere (a light, plain style
/// that follows the screen's scale), lets no exception through Qt, has waiting writes flushed before the
/// event loop blocks, and leaves the event loop when the last form has been unloaded.
class Application : public QApplication {
  public:
    explicit Application(std::string title);

    /// The program's title: of message boxes that name none, and of error boxes.
    static const std::string& title();
    /// What the process returns when it is left; 0 unless something went wrong.
    static void setExitStatus(int status);
    /// Leaves the process on the spot: no window is closed, no destructor runs.
    [[noreturn]] static void leave();

    bool notify(QObject* receiver, QEvent* event) override;
};

} // namespace tol::forms
