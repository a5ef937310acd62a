// SPDX-License-Identifier: MIT
#pragma once

#include "tolctl/Command.h"

namespace tol::ctl {

/// The commands below `rights`; RightsCommand lists them.
CommandFactory modulesCommand, itemsCommand, templatesCommand, templateCommand, usersCommand, userCommand,
    effectiveCommand, whoCommand, diffCommand, checkCommand, fillCommand, applyCommand;
CommandFactory printCommand; // only in a build with Qt, which draws the reports

} // namespace tol::ctl
