// SPDX-License-Identifier: MIT
#pragma once

#include "data/Recordset.h"
#include "forms/events/EventProcedure.h"

#include <string>

namespace tol::forms {
class TextBox;
}

namespace tol::rights {

/// Has the procedure run when a person asks for a search: has typed a "?" or "/" anywhere in the box of a
/// code.
void onSearchAsked(forms::TextBox& box, forms::EventProcedure search);

/// What a search for the box's code leads to. `mark` is what the search gave: the bookmark of a row of
/// `rows`, or blank. Puts the row's code into the box, which gets the focus; false, and the box as it was,
/// when no row was chosen, or when somebody has deleted it meanwhile.
bool takeSearched(forms::TextBox& box, data::Recordset& rows, const std::string& codeField,
                  const std::string& mark);

} // namespace tol::rights
