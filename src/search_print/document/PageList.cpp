// SPDX-License-Identifier: MIT
#include "search_print/document/PageList.h"

#include <algorithm>

namespace tol::search_print {

std::size_t PageList::fontPosition(const FontSpec& spec) {
    const auto known = std::ranges::find(m_fonts, spec, &DocumentFont::spec);
    if (known != m_fonts.end())
        return static_cast<std::size_t>(known - m_fonts.begin());
    m_fonts.emplace_back(spec);
    return m_fonts.size() - 1;
}

} // namespace tol::search_print
