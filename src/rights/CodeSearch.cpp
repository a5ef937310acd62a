// SPDX-License-Identifier: MIT
#include "rights/CodeSearch.h"

#include "forms/controls/TextBox.h"
#include "runtime/RuntimeError.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdfunctions/vdTexts.h"

namespace tol::rights {
namespace {

bool goTo(data::Recordset& rows, const std::string& mark) {
    if (shell::vdIsBlank(mark))
        return false;
    try {
        rows.Bookmark(mark);
    } catch (const runtime::RuntimeError& error) {
        if (error.number() != runtime::errRecordDeleted)
            throw;
        return false;
    }
    return true;
}

} // namespace

void onSearchAsked(forms::TextBox& box, forms::EventProcedure search) {
    box.onEdited([&box, search = std::move(search)] {
        if (box.Text().find_first_of("?/") != std::string::npos)
            search();
    });
}

bool takeSearched(forms::TextBox& box, data::Recordset& rows, const std::string& codeField,
                  const std::string& mark) {
    const bool chosen = goTo(rows, mark);
    if (chosen)
        box.Text(shell::vdNullCheckText(rows.Fields(codeField)));
    box.setFocus();
    return chosen;
}

} // namespace tol::rights
