// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/Host.h"

#include <string>

namespace tol::shell {

/// Shows a box with one OK button and remembers it in gMsgText, gMsgTitle and gMsgResult.
void showBox(std::string text, runtime::MsgIcon icon, std::string title);

} // namespace tol::shell
