// SPDX-License-Identifier: MIT
#include "FocusShown.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QScrollBar>
#include <QTabBar>

#include <fmt/format.h>

namespace tol::test {
namespace {

/// No child is there that could have the keyboard.
bool isEmptyMainWindow(QWidget& front) {
    const auto* area = front.findChild<QMdiArea*>();
    if (area == nullptr)
        return false;
    const QMdiSubWindow* child = area->activeSubWindow();
    return child == nullptr || !child->isVisible() || child->isMinimized();
}

bool isLitMenuBar(const QWidget& widget) {
    const auto* bar = dynamic_cast<const QMenuBar*>(&widget);
    return bar != nullptr && bar->activeAction() != nullptr;
}

/// The scroll bar that stands for a list is too small to be seen: the frame around the list shows the focus.
bool isListInSight(const QWidget& widget) {
    if (dynamic_cast<const QScrollBar*>(&widget) == nullptr || !widget.objectName().startsWith("hsb"))
        return false;
    const auto* frame =
        widget.parentWidget()->findChild<QWidget*>(QString(widget.objectName()).replace("hsb", "fra"));
    return frame != nullptr && !frame->visibleRegion().isEmpty();
}

bool showsFocus(const QWidget& widget) {
    const bool isOfSuchKind = dynamic_cast<const QLineEdit*>(&widget) != nullptr ||
                              dynamic_cast<const QAbstractButton*>(&widget) != nullptr ||
                              dynamic_cast<const QAbstractItemView*>(&widget) != nullptr ||
                              dynamic_cast<const QComboBox*>(&widget) != nullptr ||
                              dynamic_cast<const QAbstractSpinBox*>(&widget) != nullptr ||
                              dynamic_cast<const QTabBar*>(&widget) != nullptr;
    return (isOfSuchKind && !widget.visibleRegion().isEmpty()) || isListInSight(widget) ||
           isLitMenuBar(widget);
}

} // namespace

std::string focusFault(QWidget& front) {
    if (QApplication::activePopupWidget() != nullptr)
        return {};
    const QWidget* focus = QApplication::focusWidget();
    if (focus != nullptr && isLitMenuBar(*focus))
        return {};
    if (isEmptyMainWindow(front) || front.windowFlags().testFlag(Qt::FramelessWindowHint)) // or the splash
        return {};
    const std::string window =
        fmt::format("{} \"{}\"", front.objectName().toStdString(), front.windowTitle().toStdString());
    if (focus == nullptr)
        return "nothing has the keyboard in " + window;
    const std::string name =
        fmt::format("{} {}", focus->metaObject()->className(), focus->objectName().toStdString());
    if (focus->window() != &front)
        return fmt::format("{} behind {} has the keyboard", name, window);
    if (!focus->isVisible() || !focus->isEnabled())
        return fmt::format("{} in {} has the keyboard and is out of {}", name, window,
                           focus->isVisible() ? "use" : "sight");
    return showsFocus(*focus) ? std::string()
                              : fmt::format("{} in {} does not show that it has the keyboard", name, window);
}

} // namespace tol::test
