// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace tol::ctl {

/// A message box that was shown, and what was answered.
struct Message {
    std::string title, text, answer;
    auto operator<=>(const Message&) const = default;
};

/// All boxes of a run in their order. A question that comes back for each of a million rows is held
/// once.
class MessageLog {
  public:
    void add(Message message);
    [[nodiscard]] std::size_t size() const { return m_order.size(); }
    [[nodiscard]] const Message& operator[](std::size_t position) const {
        return *m_distinct[m_order[position]];
    }

  private:
    std::map<Message, std::uint32_t> m_numbers;
    std::vector<const Message*> m_distinct; ///< by number; the map's own keys
    std::vector<std::uint32_t> m_order;
};

} // namespace tol::ctl
