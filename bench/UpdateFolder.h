// SPDX-License-Identifier: MIT
#pragma once

#include "data/DBEngine.h"
#include "definition_update/engine/DefinitionUpdate.h"
#include "runtime/Host.h"

#include <cstdlib>
#include <string>

namespace tol::bench {

/// A host without a person: every question is answered Yes, nothing is pending.
class SilentHost : public runtime::Host {
  protected:
    runtime::MsgResult showMsgBox(const std::string& text, runtime::MsgStyle style,
                                  const std::string& title) override;
    void processEvents() override {}
    [[noreturn]] void endProgram() override { std::abort(); }
};

/// A view that shows nothing.
class SilentView : public update::UpdateView, public update::RefreshView {
  public:
    void showState(update::RunState) override {}
    void showTagged(int) override {}
    void showLabel(update::RunLabel, const std::string&) override {}
    void showRecordLabels(bool) override {}
    void resetActivity() override {}
    void showActivity(const update::Activity& /*activity*/, const update::ActivityRow& row) override {
        lastAction = row.Action;
    }
    void fillActivity() override {}
    void showLabel(update::RefreshLabel, const std::string&) override {}
    void enableCancel() override {}

    std::string lastAction;
};

/// Makes, in the current folder, the databases that a run needs: DBPATHS.MDB with the one site SITE in
/// the folder "site", ZOVDEF.MDB with the one database WIDE (reference copy in the folder "reference"),
/// ZOVNET.MDB and NETPATH.MDB. The two copies of WIDE.MDB are the caller's.
void makeUpdateFolder();
/// Fills the wanted definition from the reference copy.
void refresh();
/// One run of the update over the site; returns the action of its last log row.
std::string runUpdate();

} // namespace tol::bench
