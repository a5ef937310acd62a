// SPDX-License-Identifier: MIT
#include "support/BoxAnswerer.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

namespace tol::test {
namespace {

SeenBox seen(const QMessageBox& box) {
    // Read out, a text has no line ends but its own.
    const QString text = box.findChild<QLabel*>("qt_msgbox_label")->accessibleName();
    SeenBox result{box.windowTitle().toStdString(), text.toStdString(), box.icon(), {}, {}};
    QList<QAbstractButton*> buttons = box.buttons();
    std::ranges::sort(buttons, {}, &QAbstractButton::x);
    for (const QAbstractButton* button : buttons)
        result.buttons.push_back(button->objectName().toStdString());
    if (box.defaultButton() != nullptr)
        result.defaultButton = box.defaultButton()->objectName().toStdString();
    return result;
}

} // namespace

BoxAnswerer::BoxAnswerer() {
    m_timer.callOnTimeout([this] { look(); });
    m_timer.start(5);
}

void BoxAnswerer::look() {
    auto* box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr || box->objectName() != "msgBox" || !box->isVisible() ||
        box->property("seen").toBool())
        return;
    box->setProperty("seen", true);
    boxes.push_back(seen(*box));
    if (onBox)
        return onBox(*box);
    std::string answer = boxes.back().defaultButton;
    if (!answers.empty()) {
        answer = answers.front();
        answers.pop_front();
    }
    box->findChild<QAbstractButton*>(QString::fromStdString(answer))->click();
}

} // namespace tol::test
