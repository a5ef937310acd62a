// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/Host.h"

#include <string>

namespace tol::forms {

/// Shows a modal message box and returns the button pressed. The box has the object name "msgBox", its
/// buttons are cmdOK, cmdCancel, cmdYes and cmdNo. Esc and the close button are Cancel where there is one
/// and OK where that is the only answer; a Yes or No has to be given. No line of the text is broken within a
/// path or a quoted name.
runtime::MsgResult showMessageBox(const std::string& text, runtime::MsgStyle style, const std::string& title);

} // namespace tol::forms
