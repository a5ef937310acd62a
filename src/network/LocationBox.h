// SPDX-License-Identifier: MIT
#pragma once

#include "forms/look/Twips.h"

#include <string>

class QLabel;
class QPushButton;

namespace tol::forms {
class Form;
class TextBox;
} // namespace tol::forms

namespace tol::network {

/// The box txtNETPATH, in which a person gives a location, and cmdSelectPath at its end, which opens the
/// location picker. Both lie on the window.
class LocationBox {
  public:
    /// `label` names the box.
    LocationBox(forms::Form& window, QLabel& label, int maxLength, forms::Place where);

    void show(const std::string& location);
    /// The text of the box. What was shown stays whole while nobody has touched it, however long it is.
    [[nodiscard]] std::string location() const;
    void setVisible(bool visible);
    void takeFocus();
    /// Has the text in capitals once the person leaves the box.
    void setUpperCase();

  private:
    void cmdSelectPath_Click();

    forms::Form& m_window;
    forms::TextBox* txtNETPATH;
    QPushButton* cmdSelectPath;
    std::string m_shown; ///< the whole location
    std::string m_inBox; ///< as much of it as the box takes
};

} // namespace tol::network
