// SPDX-License-Identifier: MIT
#pragma once

class QIcon;

namespace tol::shell {

/// The program's icon in all its sizes, from the program file itself.
QIcon programIcon();

} // namespace tol::shell
