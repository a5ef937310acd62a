// SPDX-License-Identifier: MIT
#include "search_print/InputPause.h"

#include <QApplication>
#include <QEvent>

namespace tol::search_print {
namespace {

bool isInput(QEvent::Type type) {
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchEnd:
    case QEvent::Close:
        return true;
    default:
        return false;
    }
}

} // namespace

InputPause::InputPause() : m_modalBefore(QApplication::activeModalWidget()) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    qApp->installEventFilter(this);
}

InputPause::~InputPause() {
    QApplication::restoreOverrideCursor();
}

bool InputPause::eventFilter(QObject*, QEvent* event) {
    if (!isInput(event->type()) || QApplication::activeModalWidget() != m_modalBefore)
        return false;
    event->ignore();
    return true;
}

} // namespace tol::search_print
