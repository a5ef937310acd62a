// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/UpdateView.h"
#include "tolctl/MessageLog.h"

#include <vector>

namespace tol::ctl {

// Arrays of objects for the JSON that commands print.

/// The rows of ACTIVITYLOG.
void printJsonActivity();
/// The boxes of a run.
void printJsonMessages(const MessageLog& messages);
/// What a run could not keep of what other programs had declared.
void printJsonNotes(const std::vector<update::DefinitionNote>& notes);
/// Databases that a run left, and folders that it did not find.
void printJsonLeft(const std::vector<update::LeftDatabase>& databases);
void printJsonMissing(const std::vector<update::MissingFolder>& folders);

} // namespace tol::ctl
