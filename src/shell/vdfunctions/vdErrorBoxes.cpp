// SPDX-License-Identifier: MIT
#include "shell/vdfunctions/MessageBox.h"
#include "shell/vdfunctions/vdfunctions.h"

#include <fmt/format.h>

namespace tol::shell {

using runtime::MsgIcon;

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
