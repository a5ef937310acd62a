// SPDX-License-Identifier: MIT
#pragma once

#include "search_print/document/PageList.h"

#include <filesystem>
#include <string>

namespace tol::search_print {

/// Writes the document to a PDF file, in which its texts can be searched. A file that is there already is
/// replaced only once the new one is complete. Raises 75 when that can't be done; a document has at least
/// one page.
void writePdf(const PageList& list, const std::filesystem::path& file, const std::string& title);

} // namespace tol::search_print
