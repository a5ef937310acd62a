// SPDX-License-Identifier: MIT
#include "tolctl/MessageLog.h"

#include <utility>

namespace tol::ctl {

void MessageLog::add(Message message) {
    const auto next = static_cast<std::uint32_t>(m_distinct.size());
    const auto [place, isNew] = m_numbers.try_emplace(std::move(message), next);
    if (isNew)
        m_distinct.push_back(&place->first);
    m_order.push_back(place->second);
}

} // namespace tol::ctl
