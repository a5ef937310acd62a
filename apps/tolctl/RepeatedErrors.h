// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/UpdateView.h"

#include <map>

namespace tol::ctl {

/// Notices an error that would come back for ever. An update that fails on a field starts its table again and
/// meets the same error; at a desk a person would press Cancel at last.
class RepeatedErrors {
  public:
    /// How often the same error may come at the same place of one database.
    static constexpr int limit = 3;

    /// Counts an error; true when it has now come `limit` times or more, whatever came between.
    bool isRepeated(const update::ReportedError& error) { return ++m_counts[error] >= limit; }

  private:
    std::map<update::ReportedError, int> m_counts;
};

} // namespace tol::ctl
