// SPDX-License-Identifier: MIT
#include "forms/controls/Controls.h"

#include <QCheckBox>
#include <QFrame>
#include <QGroupBox>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>

namespace tol::forms {
namespace {

/// Too small to be a bar: the highlighted row of its list shows where the focus is.
class FocusHolder : public QScrollBar {
  public:
    explicit FocusHolder(QWidget& parent) : QScrollBar(Qt::Horizontal, &parent) {
        setRange(0, 0);
        setFocusPolicy(Qt::StrongFocus);
        setContextMenuPolicy(Qt::PreventContextMenu);
    }

  protected:
    void paintEvent(QPaintEvent*) override {}
};

/// Qt names the parts that its own widgets are made of.
bool isControl(const QWidget& widget) {
    return !widget.isWindow() && !widget.objectName().isEmpty() && !widget.objectName().startsWith("qt_");
}

} // namespace

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

QScrollBar& addScrollBar(QWidget& parent, const QString& name, const QString& description, Place where) {
    auto& bar = *new FocusHolder(parent);
    bar.setObjectName(name);
    bar.setAccessibleName(description);
    place(bar, where);
    return bar;
}

QLabel& addImage(QWidget& parent, const QString& name, const QIcon& picture, const QString& description,
                 Place where) {
    QLabel& image = addLabel(parent, name, {}, where);
    image.setAccessibleName(description);
    image.setPixmap(picture.pixmap(image.size(), parent.devicePixelRatio()));
    return image;
}

void setLabelOf(QLabel& label, QWidget& control) {
    label.setBuddy(&control);
    control.setAccessibleName(label.text().remove('&')); // which Qt does not derive for lists
}

void setTextSize(QLabel& label, int percent, bool bold) {
    QFont font = label.font();
    font.setPointSizeF(font.pointSizeF() * percent / 100);
    font.setBold(bold);
    label.setFont(font);
}

void hideControls(QWidget& window) {
    for (QWidget* control : window.findChildren<QWidget*>())
        if (isControl(*control) && control->window() == window.window() &&
            !control->objectName().startsWith("tmr"))
            control->hide();
}

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
