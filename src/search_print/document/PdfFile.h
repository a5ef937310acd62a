// SPDX-License-Identifier: MIT
#pragma once

#include "search_print/document/PageList.h"

#include <filesystem>
#include <span>
#include <string>

namespace tol::search_print {

/// Writes pages of a document (all of it, or a part) to a PDF file, in which its texts can be searched. A
/// file that is there already is replaced only once the new one is complete; a device is written to.
/// Raises 75 when that can't be done. There is at least one page.
void writePdf(const PageList& list, std::span<const Page> pages, const std::filesystem::path& file,
              const std::string& title);

} // namespace tol::search_print
