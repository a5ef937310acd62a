// SPDX-License-Identifier: MIT
#pragma once

#include "tolctl/Command.h"

namespace tol::ctl {

/// The commands below `rights`; RightsCommand lists them.
CommandFactory modulesCommand, itemsCommand, templatesCommand, templateCommand, usersCommand, userCommand;

} // namespace tol::ctl
