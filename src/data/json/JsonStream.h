// SPDX-License-Identifier: MIT
#pragma once

#include "data/json/JsonNode.h"

#include <istream>

namespace tol::data::json {

/// Reads a JSON text to its end and tells it to the nodes, beginning with the root. No more than one
/// value of it is ever held in memory. Every RuntimeError, of the text itself (3343) or raised by a
/// node, says in its description which line it is about.
void readJson(std::istream& in, JsonNode& root);

} // namespace tol::data::json
