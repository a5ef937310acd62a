// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/Host.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tol::shell {

// The last message box that a shared routine showed.
extern std::string gMsgText;
extern std::string gMsgTitle;
extern std::int16_t gMsgResult;

/// Shows a box with one OK button and remembers it in gMsgText, gMsgTitle and gMsgResult.
void showBox(std::string text, runtime::MsgIcon icon, std::string title);

/// The box of a window whose Load failed.
void vdFormLoadErrorBox(std::string_view windowName, std::string_view number, std::string_view description);
/// The box of a failure during processing. `number` is the error's number, often with a place behind it.
void vdProcessError(std::string_view place, std::string_view number, std::string_view description);
void vdNotReady();

} // namespace tol::shell
