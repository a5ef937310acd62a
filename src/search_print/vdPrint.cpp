// SPDX-License-Identifier: MIT
#include "search_print/vdPrint.h"

#include "runtime/RuntimeError.h"
#include "search_print/frmvdPrint.h"
#include "shell/vdfunctions/vdBoxes.h"

namespace tol::search_print {

void vdPrint(QWidget& owner, const PrintRequest& request) {
    try {
        frmvdPrint window(request);
        window.showModal(&owner);
    } catch (const runtime::RuntimeError&) {
        shell::showBox("Error Opening Window vdPrint", runtime::MsgIcon::Critical, "Error: vdPrint");
    }
}

} // namespace tol::search_print
