// SPDX-License-Identifier: MIT
#include "shell/vdfunctions/vdBoxes.h"

#include <fmt/format.h>

#include <utility>

namespace tol::shell {

using runtime::MsgIcon;

std::string gMsgText;
std::string gMsgTitle;
std::int16_t gMsgResult = 0;

void showBox(std::string text, MsgIcon icon, std::string title) {
    gMsgText = std::move(text);
    gMsgTitle = std::move(title);
    gMsgResult = static_cast<std::int16_t>(
        runtime::host().msgBox(gMsgText, {icon, runtime::MsgButtons::Ok}, gMsgTitle));
}

void vdFormLoadErrorBox(std::string_view windowName, std::string_view number, std::string_view description) {
    showBox(fmt::format("Error Loading Form: {}\n\nError Number: {}\n\nError Description: {}", windowName,
                        number, description),
            MsgIcon::Critical, "Error Displaying Form");
}

void vdProcessError(std::string_view place, std::string_view number, std::string_view description) {
    showBox(fmt::format("Error Encountered In Form: {}\nError: {}\n{}", place, number, description),
            MsgIcon::Critical, "Error During Processing");
}

void vdNotReady() {
    showBox("Development is Pending on this Option.", MsgIcon::Information, "Option Not Ready");
}

} // namespace tol::shell
