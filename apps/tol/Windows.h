// SPDX-License-Identifier: MIT
#pragma once

namespace tol::shell {
class frmTOLMAIN;
}

namespace tol {

/// Tells the main window all windows that its menu opens.
void addWindows(shell::frmTOLMAIN& main);

} // namespace tol
