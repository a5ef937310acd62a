// SPDX-License-Identifier: MIT
#include "definition_update/engine/Procedure.h"

#include "definition_update/engine/ErrorReport.h"

namespace tol::update {
namespace {

bool takesNoChange(int number) {
    return number == runtime::errReadOnly || number == runtime::errNoPermission;
}

auto reportFor(UpdateState& s, std::string_view procedure) {
    return [&s, procedure](const runtime::RuntimeError& error) {
        boxFor(updateForm, procedure)(error);
        noteError(s, procedure, error.number());
    };
}

} // namespace

bool runProcedure(UpdateState& s, std::string_view procedure, const std::function<void()>& body) {
    return trapErrors(reportFor(s, procedure), body);
}

bool runStep(UpdateState& s, std::string_view procedure, const std::function<void()>& body) {
    return trapError(reportFor(s, procedure), body);
}

// What is reported while a database is already being left is not the reason for it.
void noteError(UpdateState& s, std::string_view procedure, int number) {
    if (s.stopRequest != StopRequest::LeaveDatabase)
        s.lastBox = shell::gMsgText;
    if (s.target.isOpen() && takesNoChange(number))
        s.stop(StopRequest::LeaveDatabase);
    s.view.showError({procedure, number, s.siteName, s.DBNAME, s.TNAME, s.FNAME, shell::gMsgText});
}

void requireUpdatableTarget(UpdateState& s) {
    if (!s.targetUpdatable)
        s.target.RequireUpdatable();
    s.targetUpdatable = true;
}

} // namespace tol::update
