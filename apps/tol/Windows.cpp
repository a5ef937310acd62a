// SPDX-License-Identifier: MIT
#include "tol/Windows.h"

#include "shell/frmTOLMAIN.h"

namespace tol {

void addWindows(shell::frmTOLMAIN&) {}

} // namespace tol
