// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/UpdateView.h"
#include "tolctl/MessageLog.h"

#include <string_view>
#include <vector>

namespace tol::ctl {

/// Pieces of the JSON that commands print on standard output. Bytes that are no UTF-8 come out as the
/// replacement character: a report must stay readable.
void printJsonText(std::string_view text);
/// The rows of ACTIVITYLOG as an array of objects.
void printJsonActivity();
/// The boxes of a run as an array of objects.
void printJsonMessages(const MessageLog& messages);
/// What a run could not keep of what other programs had declared, as an array of objects.
void printJsonNotes(const std::vector<update::DefinitionNote>& notes);
/// Databases that a run left, and folders that it did not find, as arrays of objects.
void printJsonLeft(const std::vector<update::LeftDatabase>& databases);
void printJsonMissing(const std::vector<update::MissingFolder>& folders);

} // namespace tol::ctl
