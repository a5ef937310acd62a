// SPDX-License-Identifier: MIT
#pragma once

#include <nlohmann/json.hpp>

#include <string_view>
#include <utility>
#include <vector>

namespace tol::ctl {

/// Passes on what is still held back of standard output, which may only now turn out to have no place.
/// False, after a word on standard error, when something of it was lost.
[[nodiscard]] bool finishOutput();
/// Whether whoever read standard output has gone away.
[[nodiscard]] bool readerIsGone();

/// From now on a reader who goes away before the end is no reason to end: work on databases goes on.
void outliveReader();

/// Prints a value as JSON. Bytes that are no UTF-8 come out as the replacement character: a report must stay
/// readable.
void printJsonValue(const nlohmann::ordered_json& value);

/// Prints an array of objects as JSON, one a line.
class JsonArray {
  public:
    using Member = std::pair<std::string_view, nlohmann::ordered_json>;

    /// Prints the next object, by the names and values of its members.
    void add(const std::vector<Member>& members);
    void end();

  private:
    bool m_empty = true;
};

} // namespace tol::ctl
