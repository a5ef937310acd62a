// SPDX-License-Identifier: MIT
#pragma once

#include "forms/events/EventProcedure.h"
#include "forms/look/Twips.h"

#include <QString>

class QCheckBox;
class QFrame;
class QGroupBox;
class QIcon;
class QLabel;
class QPushButton;
class QScrollBar;
class QWidget;

namespace tol::forms {

/// Makers of controls: each puts a control of that name on its parent and returns it; the parent owns it.
/// What assistive technology and tests read of a label is its text, never marked up.
QLabel& addLabel(QWidget& parent, const QString& name, const QString& caption, Place where);
/// A border around other controls.
QFrame& addFrame(QWidget& parent, const QString& name, Place where);
/// The same with a caption in its upper edge.
QGroupBox& addCaptionedFrame(QWidget& parent, const QString& name, const QString& caption, Place where);
/// A horizontal scroll bar that holds the focus of a list: Tab stops at it, keys go to it, but it shows
/// nothing and its value stays 0. `description` is what assistive technology calls the list.
QScrollBar& addScrollBar(QWidget& parent, const QString& name, const QString& description, Place where);
/// A picture, scaled to its place; `description` is for those who can't see it.
QLabel& addImage(QWidget& parent, const QString& name, const QIcon& picture, const QString& description,
                 Place where);
/// An "&" in the caption stands before the letter that presses the button together with Alt.
QPushButton& addButton(QWidget& parent, const QString& name, const QString& caption, Place where,
                       EventProcedure click);
/// A small button with a picture; `description` is its tool tip and what assistive technology reads. Tab
/// passes it by.
QPushButton& addPictureButton(QWidget& parent, const QString& name, const QIcon& picture,
                              const QString& description, Place where, EventProcedure click);
QCheckBox& addCheckBox(QWidget& parent, const QString& name, const QString& caption, Place where);

/// Has assistive technology name a control by the label before it; the label's mnemonic moves the focus
/// there.
void setLabelOf(QLabel& label, QWidget& control);
/// Gives a label's text another size, in percent of the usual one.
void setTextSize(QLabel& label, int percent, bool bold = false);
/// Whether Tab stops at the control.
void setTabStop(QWidget& control, bool stop);

/// Hides every control that lies on the window, in its frames too, but for those whose names begin with
/// "tmr".
void hideControls(QWidget& window);

} // namespace tol::forms
