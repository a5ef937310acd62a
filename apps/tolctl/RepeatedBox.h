// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tol::ctl {

/// Notices a box that would come back for ever. An update that fails on a field starts its table
/// again and meets the same error; at a desk a person would press Cancel at last. Such a box returns
/// at the same place behind a yield. Boxes of one place with no yield between them belong to different
/// fields of one table and are counted once.
class RepeatedBox {
  public:
    /// How often a box may show before the run is stopped.
    static constexpr int limit = 3;

    /// Tells of a box; true when it has now shown `limit` times in a row for its place.
    bool shown(const std::string& place, const std::string& title, const std::string& text);
    void yielded() { m_yielded = true; }
    /// Whether it is a box that has shown `limit` times already, wherever it comes now. An update that
    /// is stopped begins one more database before it ends.
    [[nodiscard]] bool exhausted(const std::string& title, const std::string& text) const {
        return m_count >= limit && title == m_title && text == m_text;
    }

  private:
    std::string m_place, m_title, m_text;
    int m_count = 0;
    bool m_yielded = false;
};

} // namespace tol::ctl
