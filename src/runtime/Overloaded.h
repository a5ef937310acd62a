// SPDX-License-Identifier: MIT
#pragma once

namespace tol::runtime {

/// One visitor of several functions, for Value::visit() and std::visit().
template <typename... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

} // namespace tol::runtime
