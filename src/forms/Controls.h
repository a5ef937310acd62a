// SPDX-License-Identifier: MIT
#pragma once

#include "forms/Twips.h"

#include <QString>

class QFrame;
class QGroupBox;
class QIcon;
class QLabel;
class QWidget;

namespace tol::forms {

/// Makers of controls: each puts a control of that name on its parent and returns it; the parent owns it.
/// What assistive technology and tests read of a label is its text, never marked up.
QLabel& addLabel(QWidget& parent, const QString& name, const QString& caption, Place where);
/// A border around other controls.
QFrame& addFrame(QWidget& parent, const QString& name, Place where);
/// The same with a caption in its upper edge.
QGroupBox& addCaptionedFrame(QWidget& parent, const QString& name, const QString& caption, Place where);
/// A picture, scaled to its place; `description` is for those who can't see it.
QLabel& addImage(QWidget& parent, const QString& name, const QIcon& picture, const QString& description,
                 Place where);

/// Gives a label's text another size, in percent of the usual one.
void setTextSize(QLabel& label, int percent, bool bold = false);

} // namespace tol::forms
