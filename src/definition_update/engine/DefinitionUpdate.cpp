// SPDX-License-Identifier: MIT
#include "definition_update/engine/DefinitionUpdate.h"

#include "definition_update/engine/ActivityLog.h"
#include "definition_update/engine/DefinitionRows.h"
#include "definition_update/engine/FillingMark.h"
#include "definition_update/engine/Procedure.h"
#include "definition_update/engine/UpdateDatabaseDefinition.h"
#include "definition_update/engine/UpdateTexts.h"
#include "platform/System.h"
#include "runtime/Conversions.h"
#include "runtime/Host.h"
#include "screens/input/Dates.h"
#include "shell/vdfunctions/vdEmptyTable.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdfunctions/vdRecords.h"
#include "shell/vdfunctions/vdTexts.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tol::update {

using runtime::host;
using shell::vdIsBlank;
using shell::vdNullCheckText;
using shell::vdRecordOK;

namespace {

std::string dateText(runtime::Date now) {
    int width = 10;
    int pivot = 0;
    return screens::vdDateCheck(runtime::toText(runtime::Date{std::floor(now.serial)}), width, pivot);
}

std::string timeText(runtime::Date now) {
    return runtime::toText(runtime::Date{now.serial - std::floor(now.serial)});
}

} // namespace

DefinitionUpdate::DefinitionUpdate(UpdateView& view, std::string moduleCode)
    : m_run(view), m_target(m_run, std::move(moduleCode)) {}

void DefinitionUpdate::ProcessTaggedItems(const std::string& currentMark) {
    RunOutcome end = RunOutcome::NotBegun;
    const bool reachedEnd = runProcedure(m_run, "ProcessTaggedItems", [&] {
        if (isFillingUnfinished())
            return;
        const data::WriteBatch batch(m_run.definitions);
        startRun(currentMark);
        m_sites.rows.Close();
        data::Recordset DATABASES = m_run.definitions.OpenRecordset("DATABASES");
        if (shell::vdEmptyTable(" ", "ZOVDEF.MDB", m_run.ACTIVITYLOG)) {
            m_run.ACTIVITYLOG = m_run.definitions.OpenRecordset("ACTIVITYLOG");
            m_outcome = RunOutcome::BrokenOff; // unless it comes to its end
            processSites(DATABASES);
            runtime::flush(); // nothing is finished that is not stored
            end = m_run.ContinueRun ? RunOutcome::Finished : RunOutcome::Stopped;
            showEnd(end);
        } else {
            host().msgBox("Cannot Empty Activity Log.", {runtime::MsgIcon::Exclamation}, "ERROR");
        }
        DATABASES.Close();
        m_run.ACTIVITYLOG = m_run.definitions.OpenRecordset("ACTIVITYLOG");
        m_run.view.fillActivity();
        m_run.view.showState(RunState::Ended);
    });
    if (reachedEnd)
        m_outcome = end;
}

// All tables that a part of a definition leaves out would be taken for unwanted.
bool DefinitionUpdate::isFillingUnfinished() {
    if (!FillingMark(m_run.definitions).isSet())
        return false;
    host().msgBox(
        "The Last Refresh of the Database Definitions Did Not Finish.\n"
        "The Definitions in ZOVDEF.MDB ARE INCOMPLETE: an Update Would Remove Tables That are Wanted.\n\n"
        "Refresh the Database Definitions First.",
        {runtime::MsgIcon::Critical}, "Error During Processing");
    return true;
}

void DefinitionUpdate::startRun(const std::string& currentMark) {
    m_run.ContinueRun = true;
    m_run.view.showState(RunState::Running);
    m_run.view.showRecordLabels(false);
    tagCurrentSite(currentMark);
    m_run.view.resetActivity();
    m_target.start();
    const runtime::Date now = platform::now();
    m_run.runDate = dateText(now);
    m_run.runTime = timeText(now);
}

// A single site needs no tagging: without any tag the site under the highlight is taken.
void DefinitionUpdate::tagCurrentSite(const std::string& currentMark) {
    const auto inUse = [](const TaggedSite& site) { return site.DBTAG != 0; };
    if (std::any_of(m_tagList.begin(), m_tagList.end(), inUse) || vdIsBlank(currentMark))
        return;
    m_sites.rows.Bookmark(currentMark);
    m_tagList[0] = siteOf(m_sites.rows);
    m_tagList[0].PathText = vdNullCheckText(m_sites.rows.Fields("PathText"));
    m_run.view.showTagged(0);
}

void DefinitionUpdate::processSites(data::Recordset& DATABASES) {
    for (const TaggedSite& site : m_tagList) {
        if (site.DBTAG == 0)
            continue;
        processSite(DATABASES, site);
        if (!m_run.ContinueRun)
            break;
    }
    m_run.view.showLabel(RunLabel::NPDBNAME, " ");
    m_run.view.showLabel(RunLabel::NP2, " ");
}

// The second pass captures the result of the first afresh: it makes the indexes that conversions and field
// removals had to delete, and tells which databases are clean now. A stop in the first pass is not
// looked at between the passes.
void DefinitionUpdate::processSite(data::Recordset& DATABASES, const TaggedSite& site) {
    m_left.clear();
    m_run.siteName = site.PATHNAME;
    m_run.view.showLabel(RunLabel::NPPATHNAME, site.PATHNAME);
    m_run.view.showLabel(RunLabel::NPPATHTEXT, site.PathText);
    for (int pass = 1; pass <= 2; ++pass) {
        DATABASES.MoveFirst();
        while (vdRecordOK(DATABASES)) {
            m_run.DBNAME = foldedText(DATABASES.Fields("DBNAME"));
            if (!m_left.contains(m_run.DBNAME))
                processRow(DATABASES, site);
            host().doEvents();
            if (m_run.stopRequest == StopRequest::LeaveDatabase)
                leaveDatabase();
            if (!m_run.ContinueRun)
                break;
            DATABASES.MoveNext();
        }
    }
}

void DefinitionUpdate::showEnd(RunOutcome outcome) {
    const ClosingText closing = closingText(outcome);
    m_run.view.showLabel(RunLabel::NPPATHNAME, closing.result);
    m_run.view.showLabel(RunLabel::NPPATHTEXT, closing.sentence);
}

// "Ok" means no more than that nothing marked the database incomplete and that no step set ChangesMade: a
// database with nothing but conversions, or with an error box, counts as well.
void DefinitionUpdate::processRow(const data::Recordset& DATABASES, const TaggedSite& site) {
    m_run.view.showLabel(RunLabel::NPDBNAME, m_run.DBNAME);
    if (!m_target.find(DATABASES, site))
        return;
    m_run.view.showLabel(RunLabel::NPDBNAME, m_run.DBNAME);
    const DatabaseResult result = UpdateDatabaseDefinition(m_run, m_target.file());
    if (m_run.stopRequest == StopRequest::LeaveDatabase)
        return;
    if (!result.DatabaseOk)
        logIncomplete();
    else if (!result.ChangesMade)
        WriteActivityLog(m_run, {ActivityKind::NoChanges});
}

// The other pass does not come back to it; the run goes on.
void DefinitionUpdate::leaveDatabase() {
    m_run.stopRequest = StopRequest::None;
    m_run.ContinueRun = true;
    m_left.insert(m_run.DBNAME);
    logIncomplete();
    m_run.view.showLeft({m_run.siteName, m_run.DBNAME, m_run.lastBox});
}

void DefinitionUpdate::logIncomplete() {
    m_anyIncomplete = true;
    WriteActivityLog(m_run, {ActivityKind::DatabaseIncomplete});
}

} // namespace tol::update
