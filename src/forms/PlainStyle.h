// SPDX-License-Identifier: MIT
#pragma once

#include <QStyle>

#include <memory>

namespace tol::forms {

/// How the program looks, the same on every desktop: a plain light style whose message icons are drawn, so
/// that they are crisp at any scale.
std::unique_ptr<QStyle> plainStyle();

} // namespace tol::forms
