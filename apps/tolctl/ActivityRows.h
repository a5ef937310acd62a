// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/UpdateView.h"

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace tol::ctl {

/// The columns of the log, in stored order.
struct ActivityColumn {
    std::string_view name;
    std::string_view title;
    std::string update::ActivityRow::*member;
    std::size_t width; ///< characters that most values need
};
const std::array<ActivityColumn, 8>& activityColumns();

/// Reads ACTIVITYLOG of the definition database in the current folder, row by row in stored order.
void forEachActivity(const std::function<void(const update::ActivityRow&)>& visit);

/// Prints rows in columns. Texts longer than a column push the rest of their line to the right.
class ActivityTable {
  public:
    ActivityTable();
    /// Makes the columns as wide as this row needs.
    void widen(const update::ActivityRow& row);
    [[nodiscard]] std::string heading() const;
    [[nodiscard]] std::string line(const update::ActivityRow& row) const;

  private:
    template <typename CellOf>
    [[nodiscard]] std::string joined(CellOf&& cellOf) const;
    std::array<std::size_t, 8> m_widths{};
};

} // namespace tol::ctl
