// SPDX-License-Identifier: MIT
#include "search_print/vdSearch.h"

#include "runtime/RuntimeError.h"
#include "search_print/frmvdSearch.h"
#include "shell/vdfunctions/vdBoxes.h"

#include <QApplication>

namespace tol::search_print {

std::string vdSearch(const SearchDescription& description) {
    try {
        frmvdSearch window(description);
        window.showModal(QApplication::activeWindow());
        return window.SearchResult;
    } catch (const runtime::RuntimeError&) {
        shell::showBox("Error Opening Window vdSearch", runtime::MsgIcon::Critical, "Error: vdSearch");
        return " ";
    }
}

} // namespace tol::search_print
