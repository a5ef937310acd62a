// SPDX-License-Identifier: MIT
#include "forms/events/Application.h"

#include "forms/events/ErrorGuard.h"
#include "forms/look/PlainStyle.h"
#include "forms/windows/Form.h"
#include "runtime/Host.h"

#include <QAbstractEventDispatcher>
#include <QKeyEvent>
#include <QKeySequence>
#include <QWidget>

#include <cstdio>
#include <cstdlib>
#include <memory>

namespace tol::forms {
namespace {

// What Qt is told of the command line: the program's name and nothing else.
int argumentCount = 1;
char programName[] = "tol";
char* argumentTexts[] = {programName, nullptr};

std::string programTitle;

/// Whether the form takes the key. Who watches what Alt is held for, as a menu bar does, is told as of a
/// shortcut, since the key itself goes no further.
bool isTaken(QWidget& widget, const QKeyEvent& key) {
    if (!Form::previewKey(widget, key))
        return false;
    QShortcutEvent used(QKeySequence(), 0);
    QCoreApplication::sendEvent(qApp, &used);
    return true;
}

/// Whether the event is a key that a form takes before the control that has the focus.
bool isForForm(QObject* receiver, QEvent* event) {
    if (!receiver->isWidgetType())
        return false;
    auto& widget = *static_cast<QWidget*>(receiver);
    if (event->type() == QEvent::FocusIn)
        Form::noteFocus(widget, static_cast<QFocusEvent*>(event)->reason());
    if (event->type() == QEvent::KeyPress)
        return isTaken(widget, *static_cast<QKeyEvent*>(event));
    // Asked whether a key is more than a shortcut: the form's own letters go before those of the menu.
    const bool claimed = event->type() == QEvent::ShortcutOverride &&
                         Form::hasMnemonic(widget, *static_cast<QKeyEvent*>(event));
    if (claimed)
        event->accept();
    return claimed;
}

int status = EXIT_SUCCESS;

} // namespace

Application::Application(std::string title)
    : QApplication(argumentCount, static_cast<char**>(argumentTexts)) {
    programTitle = std::move(title);
    setApplicationName(programName);
    setStyle(std::make_unique<PlainStyle>().release());
    setPalette(style()->standardPalette());
    // A hidden main window behind a closed splash is still a running program: forms decide, not windows.
    setQuitOnLastWindowClosed(false);
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this, [] {
        if (!endingOnError())
            guarded(runtime::flush);
    });
}

const std::string& Application::title() {
    return programTitle;
}

void Application::setExitStatus(int newStatus) {
    status = newStatus;
}

void Application::leave() {
    std::fflush(nullptr);
    std::_Exit(status);
}

bool Application::notify(QObject* receiver, QEvent* event) {
    bool handled = true;
    guarded([&] { handled = isForForm(receiver, event) || QApplication::notify(receiver, event); });
    return handled;
}

} // namespace tol::forms
