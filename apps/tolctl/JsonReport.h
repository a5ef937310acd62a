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

} // namespace tol::ctl
