// SPDX-License-Identifier: MIT
#include "shell/vdfunctions/MessageBox.h"

#include "shell/vdfunctions/vdfunctions.h"

#include <utility>

namespace tol::shell {

std::string gMsgText;
std::string gMsgTitle;
std::int16_t gMsgResult = 0;

void showBox(std::string text, runtime::MsgIcon icon, std::string title) {
    gMsgText = std::move(text);
    gMsgTitle = std::move(title);
    gMsgResult = static_cast<std::int16_t>(
        runtime::host().msgBox(gMsgText, {icon, runtime::MsgButtons::Ok}, gMsgTitle));
}

} // namespace tol::shell
