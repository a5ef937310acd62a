// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/RuntimeError.h"
#include "shell/vdfunctions/vdfunctions.h"

#include <string>
#include <string_view>

namespace tol::update {

/// The windows that error reports name.
inline constexpr std::string_view updateForm = "frmDBUDDU";
inline constexpr std::string_view refreshForm = "frmDBURefresh";

/// Runs a procedure's body. A run-time error in it is reported with the procedure's name behind the
/// error's number, and ends the procedure alone: its caller goes on. True when there was none.
template <typename Body>
bool reportErrors(std::string_view form, std::string_view procedure, Body&& body) {
    try {
        body();
        return true;
    } catch (const runtime::RuntimeError& error) {
        shell::vdProcessError(form, std::to_string(error.number()) + " " + std::string(procedure),
                              error.description());
        return false;
    }
}

} // namespace tol::update
