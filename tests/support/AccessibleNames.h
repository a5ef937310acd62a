// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

class QWidget;

namespace tol::test {

/// What is in sight on a window, can be used or looked at, and has no name that assistive technology could
/// tell: the roles and object names of such controls. Labels without a text are left out.
std::vector<std::string> controlsWithoutName(QWidget& window);

} // namespace tol::test
