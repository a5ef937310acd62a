// SPDX-License-Identifier: MIT
#pragma once

#include "search_print/document/PageList.h"

#include <filesystem>
#include <functional>
#include <span>
#include <string>

namespace tol::search_print {

/// Told before each page its number, and how many there are. False when the work is to stop.
using PageProgress = std::function<bool(int page, int pages)>;

/// Writes pages of a document (all of it, or a part) to a PDF file, in which its texts can be searched. A
/// file that is there already is replaced only once the new one is complete; a device is written to.
/// Raises 75 when that can't be done. There is at least one page. Stopped, it leaves things as they were.
void writePdf(const PageList& list, std::span<const Page> pages, const std::filesystem::path& file,
              const std::string& title, const PageProgress& progress = nullptr);

} // namespace tol::search_print
