// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>

namespace tol::ctl {

/// The command line asks for something that the data of this folder does not have or allow.
class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

} // namespace tol::ctl
