// SPDX-License-Identifier: MIT
#include "definition_update/engine/DefinitionUpdate.h"

#include "definition_update/engine/UpdateDriver.h"
#include "definition_update/engine/UpdateState.h"
#include "shell/vdfunctions/vdfunctions.h"

#include <utility>

namespace tol::update {

struct DefinitionUpdate::State {
    State(UpdateView& view, std::string moduleCode) : update(view, std::move(moduleCode)), driver(update) {
        wksPATH = data::DBEngine::CreateWorkspace("wksPATH");
        paths = wksPATH.OpenDatabase("DBPATHS.MDB", false);
        DBPATHS = paths.OpenRecordset("DBPATHS");
        update.wksDEF = data::DBEngine::CreateWorkspace("wksDEF");
        update.definitions = update.wksDEF.OpenDatabase("ZOVDEF.MDB", false);
        update.ACTIVITYLOG = update.definitions.OpenRecordset("ACTIVITYLOG");
    }

    UpdateState update;
    UpdateDriver driver;
    data::Workspace wksPATH;
    data::Database paths;
    data::Recordset DBPATHS;
};

DefinitionUpdate::DefinitionUpdate(UpdateView& view, std::string moduleCode)
    : m_state(std::make_unique<State>(view, std::move(moduleCode))) {}

DefinitionUpdate::~DefinitionUpdate() = default;

TagList& DefinitionUpdate::tagList() {
    return m_state->update.tagList;
}

data::Recordset& DefinitionUpdate::DBPATHS() {
    return m_state->DBPATHS;
}

data::Recordset& DefinitionUpdate::ACTIVITYLOG() {
    return m_state->update.ACTIVITYLOG;
}

data::Recordset DefinitionUpdate::openDBPATHS() {
    return m_state->paths.OpenRecordset("DBPATHS");
}

data::Recordset DefinitionUpdate::openACTIVITYLOG() {
    return m_state->update.definitions.OpenRecordset("ACTIVITYLOG");
}

void DefinitionUpdate::ProcessTaggedItems(const std::string& currentMark) {
    m_state->driver.ProcessTaggedItems(m_state->DBPATHS, currentMark);
}

void DefinitionUpdate::Stop(StopRequest request) {
    m_state->update.stop(request);
}

bool DefinitionUpdate::ContinueRun() const {
    return m_state->update.ContinueRun;
}

bool DefinitionUpdate::anyIncomplete() const {
    return m_state->driver.anyIncomplete();
}

bool DefinitionUpdate::ended() const {
    return m_state->driver.ended();
}

bool DefinitionUpdate::developmentMode() {
    return shell::vdNotBlank(shell::vdDir("C:\\VBP\\ZOV\\ZOVORV.vbp"));
}

} // namespace tol::update
