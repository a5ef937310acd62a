// SPDX-License-Identifier: MIT
#include "forms/Buttons.h"

#include <QCheckBox>
#include <QPushButton>

namespace tol::forms {

QPushButton& addButton(QWidget& parent, const QString& name, const QString& caption, Place where,
                       EventProcedure click) {
    auto& button = *new QPushButton(caption, &parent);
    button.setObjectName(name);
    button.setAutoDefault(true); // Enter presses it while it has the focus
    place(button, where);
    QObject::connect(&button, &QPushButton::clicked, &button,
                     [&button, click = std::move(click)] { runEvent(button, click); });
    return button;
}

QPushButton& addPictureButton(QWidget& parent, const QString& name, const QIcon& picture,
                              const QString& description, Place where, EventProcedure click) {
    QPushButton& button = addButton(parent, name, {}, where, std::move(click));
    button.setIcon(picture);
    button.setToolTip(description);
    button.setAccessibleName(description);
    setTabStop(button, false);
    return button;
}

QCheckBox& addCheckBox(QWidget& parent, const QString& name, const QString& caption, Place where) {
    auto& box = *new QCheckBox(caption, &parent);
    box.setObjectName(name);
    place(box, where);
    return box;
}

void setTabStop(QWidget& control, bool stop) {
    control.setFocusPolicy(stop ? Qt::StrongFocus : Qt::ClickFocus);
}

} // namespace tol::forms
