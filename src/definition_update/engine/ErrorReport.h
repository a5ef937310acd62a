// SPDX-License-Identifier: MIT
#pragma once

#include "data/Database.h"
#include "runtime/DeferredErrors.h"
#include "runtime/Host.h"
#include "runtime/RuntimeError.h"
#include "shell/vdfunctions/vdBoxes.h"

#include <string>
#include <string_view>

namespace tol::update {

/// The windows that error reports name.
inline constexpr std::string_view updateForm = "frmDBUDDU";
inline constexpr std::string_view refreshForm = "frmDBURefresh";

/// Runs a step. A run-time error in it goes to `report`. True when there was none.
template <typename Report, typename Step>
bool trapError(Report&& report, Step&& step) {
    try {
        step();
        return true;
    } catch (const runtime::RuntimeError& error) {
        report(error);
        return false;
    }
}

/// Runs a procedure's body and stores what it wrote, unless it is part of a batch of writes: what can't be
/// stored is a failure of the procedure as much as a run-time error in its body. Each failure goes to
/// `report` and ends the procedure alone: its caller goes on. True when there was none.
template <typename Report, typename Body>
bool trapErrors(Report&& report, Body&& body) {
    bool fine = trapError(report, body);
    if (!data::WriteBatch::isUnderWay())
        fine = trapError(report, runtime::flush) && fine;
    while (runtime::anyDeferred())
        fine = trapError(report, [] { runtime::raiseDeferred(); }) && fine;
    return fine;
}

/// The usual report: a box with the procedure's name behind the error's number.
inline auto boxFor(std::string_view form, std::string_view procedure) {
    return [form, procedure](const runtime::RuntimeError& error) {
        shell::vdProcessError(form, std::to_string(error.number()) + " " + std::string(procedure),
                              error.description());
    };
}

template <typename Body>
bool reportErrors(std::string_view form, std::string_view procedure, Body&& body) {
    return trapErrors(boxFor(form, procedure), body);
}

} // namespace tol::update
