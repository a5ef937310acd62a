// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

class QWidget;

namespace tol::shell {

/// What a window's Load does when it fails: after a box, nothing is left on the window but its exit button,
/// by which a person closes it.
void vdFormLoadError(QWidget& window, QWidget& button, std::string_view name, std::string_view number,
                     std::string_view description);

} // namespace tol::shell
