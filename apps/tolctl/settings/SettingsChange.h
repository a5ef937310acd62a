// SPDX-License-Identifier: MIT
#pragma once

#include "tolctl/Command.h"

namespace tol::ctl {

/// The commands below `settings`, in the order of the help. Each prints JSON when `json` is set, which its
/// own option and that of `settings` do.
using SettingsChangeFactory = std::unique_ptr<Command>(CLI::App& settings, bool& json);
SettingsChangeFactory networkCommand, addUserCommand, selectCommand;

} // namespace tol::ctl
