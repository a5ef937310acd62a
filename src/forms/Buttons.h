// SPDX-License-Identifier: MIT
#pragma once

#include "forms/EventProcedure.h"
#include "forms/Twips.h"

#include <QString>

class QCheckBox;
class QIcon;
class QPushButton;
class QWidget;

namespace tol::forms {

/// Makers of buttons: each puts a button of that name on its parent and returns it; the parent owns it. An
/// "&" in the caption stands before the letter that presses the button together with Alt.
QPushButton& addButton(QWidget& parent, const QString& name, const QString& caption, Place where,
                       EventProcedure click);
/// A small button with a picture; `description` is its tool tip and what assistive technology reads. Tab
/// passes it by.
QPushButton& addPictureButton(QWidget& parent, const QString& name, const QIcon& picture,
                              const QString& description, Place where, EventProcedure click);
QCheckBox& addCheckBox(QWidget& parent, const QString& name, const QString& caption, Place where);

/// Whether Tab stops at the control.
void setTabStop(QWidget& control, bool stop);

} // namespace tol::forms
