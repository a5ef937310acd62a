// SPDX-License-Identifier: MIT
#include "forms/Controls.h"

#include <QFrame>
#include <QGroupBox>
#include <QIcon>
#include <QLabel>

namespace tol::forms {

QLabel& addLabel(QWidget& parent, const QString& name, const QString& caption, Place where) {
    auto& label = *new QLabel(caption, &parent);
    label.setObjectName(name);
    label.setTextFormat(Qt::PlainText);
    place(label, where);
    return label;
}

QFrame& addFrame(QWidget& parent, const QString& name, Place where) {
    auto& frame = *new QFrame(&parent);
    frame.setObjectName(name);
    frame.setFrameShape(QFrame::StyledPanel);
    place(frame, where);
    return frame;
}

QGroupBox& addCaptionedFrame(QWidget& parent, const QString& name, const QString& caption, Place where) {
    auto& frame = *new QGroupBox(caption, &parent);
    frame.setObjectName(name);
    place(frame, where);
    return frame;
}

QLabel& addImage(QWidget& parent, const QString& name, const QIcon& picture, const QString& description,
                 Place where) {
    QLabel& image = addLabel(parent, name, {}, where);
    image.setAccessibleName(description);
    image.setPixmap(picture.pixmap(image.size(), parent.devicePixelRatio()));
    return image;
}

void setTextSize(QLabel& label, int percent, bool bold) {
    QFont font = label.font();
    font.setPointSizeF(font.pointSizeF() * percent / 100);
    font.setBold(bold);
    label.setFont(font);
}

} // namespace tol::forms
