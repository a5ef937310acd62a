// SPDX-License-Identifier: MIT
#include "tolctl/RepeatedBox.h"

namespace tol::ctl {

bool RepeatedBox::shown(const std::string& place, const std::string& title, const std::string& text) {
    const bool same = m_count > 0 && place == m_place && title == m_title && text == m_text;
    if (!same) {
        m_place = place;
        m_title = title;
        m_text = text;
        m_count = 1;
    } else if (m_yielded) {
        ++m_count;
    }
    m_yielded = false;
    return m_count >= limit;
}

} // namespace tol::ctl
