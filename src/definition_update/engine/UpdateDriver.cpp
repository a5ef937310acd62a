// SPDX-License-Identifier: MIT
#include "definition_update/engine/UpdateDriver.h"

#include "definition_update/engine/ActivityLog.h"
#include "definition_update/engine/DefinitionRows.h"
#include "definition_update/engine/FillingMark.h"
#include "definition_update/engine/Procedure.h"
#include "definition_update/engine/UpdateDatabaseDefinition.h"
#include "platform/Paths.h"
#include "platform/System.h"
#include "runtime/Conversions.h"
#include "runtime/Host.h"
#include "runtime/Text.h"
#include "screens/input/Dates.h"
#include "shell/vdfunctions/vdfunctions.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tol::update {

using runtime::host;
using shell::vdDir;
using shell::vdIsBlank;
using shell::vdNullCheckText;
using shell::vdRecordOK;

namespace {

const std::string localFolder = "C:\\ZOVUSER";
const std::string developmentDatabase = "Cannot Process. Development Database.";
const std::string developmentDatabases = "Cannot Process. Development Databases.";

bool exists(const std::string& file) {
    return !vdIsBlank(vdDir(file));
}

std::string dateText(runtime::Date now) {
    int width = 10;
    int pivot = 0;
    return screens::vdDateCheck(runtime::toText(runtime::Date{std::floor(now.serial)}), width, pivot);
}

std::string timeText(runtime::Date now) {
    return runtime::toText(runtime::Date{now.serial - std::floor(now.serial)});
}

} // namespace

/// What a row of DATABASES says about its database.
struct UpdateDriver::DatabaseRow {
    explicit DatabaseRow(const data::Recordset& DATABASES)
        : DBNAME(foldedText(DATABASES.Fields("DBNAME"))),
          PATHCODE(foldedText(DATABASES.Fields("PATHCODE"))),
          Modules(vdNullCheckText(DATABASES.Fields("Modules"))),
          Optional(runtime::toBoolean(shell::vdNullCheck(DATABASES.Fields("Optional")))) {}

    std::string DBNAME, PATHCODE, Modules;
    bool Optional;
};

void UpdateDriver::ProcessTaggedItems(data::Recordset& DBPATHS, const std::string& currentMark) {
    bool emptied = false;
    const bool reachedEnd = runProcedure(m_s, "ProcessTaggedItems", [&] {
        if (isFillingUnfinished())
            return;
        startRun(DBPATHS, currentMark);
        DBPATHS.Close();
        data::Recordset DATABASES = m_s.definitions.OpenRecordset("DATABASES");
        emptied = shell::vdEmptyTable(" ", "ZOVDEF.MDB", m_s.ACTIVITYLOG);
        if (emptied) {
            m_s.ACTIVITYLOG = m_s.definitions.OpenRecordset("ACTIVITYLOG");
            processSites(DATABASES);
            runtime::settle(); // nothing is finished that is not stored
            showOutcome();
        } else {
            host().msgBox("Cannot Empty Activity Log.", {runtime::MsgIcon::Exclamation}, "ERROR");
        }
        DATABASES.Close();
        m_s.ACTIVITYLOG = m_s.definitions.OpenRecordset("ACTIVITYLOG");
        m_s.view.fillActivity();
        m_s.view.showState(RunState::Ended);
    });
    m_ended = reachedEnd && emptied;
}

// All tables that a part of a definition leaves out would be taken for unwanted.
bool UpdateDriver::isFillingUnfinished() {
    if (!FillingMark(m_s.definitions).isSet())
        return false;
    host().msgBox(
        "The Last Refresh of the Database Definitions Did Not Finish.\n"
        "The Definitions in ZOVDEF.MDB ARE INCOMPLETE: an Update Would Remove Tables That are Wanted.\n\n"
        "Refresh the Database Definitions First.",
        {runtime::MsgIcon::Critical}, "Error During Processing");
    return true;
}

void UpdateDriver::startRun(data::Recordset& DBPATHS, const std::string& currentMark) {
    m_s.ContinueRun = true;
    m_s.view.showState(RunState::Running);
    m_s.view.showRecordLabels(false);
    tagCurrentSite(DBPATHS, currentMark);
    m_s.view.resetActivity();
    m_developmentMode = DefinitionUpdate::developmentMode();
    m_processedLocalUser = m_processedTime = m_processedCost = m_processedInvoice = false;
    const runtime::Date now = platform::now();
    m_s.runDate = dateText(now);
    m_s.runTime = timeText(now);
}

// A single site needs no tagging: without any tag the site under the highlight is taken.
void UpdateDriver::tagCurrentSite(data::Recordset& DBPATHS, const std::string& currentMark) {
    const auto inUse = [](const TaggedSite& site) { return site.DBTAG != 0; };
    if (std::any_of(m_s.tagList.begin(), m_s.tagList.end(), inUse) || vdIsBlank(currentMark))
        return;
    DBPATHS.Bookmark(currentMark);
    m_s.tagList[0] = {runtime::toLong(shell::vdNullCheck(DBPATHS.Fields("DBTAG"))),
                      vdNullCheckText(DBPATHS.Fields("PATHNAME")),
                      vdNullCheckText(DBPATHS.Fields("PathText"))};
    m_s.view.showTagged(0);
}

void UpdateDriver::processSites(data::Recordset& DATABASES) {
    for (const TaggedSite& site : m_s.tagList) {
        if (site.DBTAG == 0)
            continue;
        processSite(DATABASES, site);
        if (!m_s.ContinueRun)
            break;
    }
    m_s.view.showLabel(RunLabel::NPDBNAME, " ");
    m_s.view.showLabel(RunLabel::NP2, " ");
}

// The second pass captures the result of the first afresh: it makes the indexes that conversions and field
// removals had to delete, and tells which databases are clean now. A stop in the first pass is not
// looked at between the passes.
void UpdateDriver::processSite(data::Recordset& DATABASES, const TaggedSite& site) {
    m_left.clear();
    m_s.siteName = site.PATHNAME;
    m_s.view.showLabel(RunLabel::NPPATHNAME, site.PATHNAME);
    m_s.view.showLabel(RunLabel::NPPATHTEXT, site.PathText);
    for (int pass = 1; pass <= 2; ++pass) {
        DATABASES.MoveFirst();
        while (vdRecordOK(DATABASES)) {
            const DatabaseRow row(DATABASES);
            if (!m_left.contains(row.DBNAME))
                processRow(row, site);
            host().doEvents();
            if (m_s.stopRequest == StopRequest::LeaveDatabase)
                leaveDatabase();
            if (!m_s.ContinueRun)
                break;
            DATABASES.MoveNext();
        }
    }
}

void UpdateDriver::showOutcome() {
    const bool finished = m_s.ContinueRun;
    m_s.view.showLabel(RunLabel::NPPATHNAME, finished ? "Finished" : "STOPPED");
    m_s.view.showLabel(RunLabel::NPPATHTEXT, finished ? "Database Definitions Have Been Updated."
                                                      : "WARNING: DATABASE DEFINITION UPDATE INCOMPLETE.");
}

void UpdateDriver::processRow(const DatabaseRow& row, const TaggedSite& site) {
    m_s.ProcessDatabase = true;
    m_s.location = site.PathText;
    m_s.DBNAME = row.DBNAME;
    m_optionalDatabase = row.Optional;
    if (row.Modules.find(m_s.ModuleCode) == std::string::npos)
        m_optionalDatabase = true;
    if (m_s.ModuleCode == "A")
        m_optionalDatabase = false;
    m_s.view.showLabel(RunLabel::NPDBNAME, m_s.DBNAME);

    applyGuards();
    if (m_s.ProcessDatabase)
        findTargetFile(row.PATHCODE);
    if (m_s.ProcessDatabase)
        requireTarget(site);
    if (m_s.ProcessDatabase)
        updateTarget();
}

// A site whose folder is not there is told of even where none of its databases has to be there.
void UpdateDriver::requireTarget(const TaggedSite& site) {
    const std::optional<bool> found = lookFor(m_s.targetFile);
    if (!found || *found)
        return;
    m_s.ProcessDatabase = false;
    if (!m_optionalDatabase)
        log("Cannot Find Database.");
    else if (m_s.location != site.PathText)
        return;
    if (const std::string folder = platform::missingFolder(m_s.targetFile); !folder.empty())
        m_s.view.showMissing({m_s.siteName, folder});
}

std::optional<bool> UpdateDriver::lookFor(const std::string& file) {
    bool found = false;
    if (runStep(m_s, "ProcessTaggedItems", [&] { found = exists(file); }))
        return found;
    m_s.ProcessDatabase = false;
    m_s.stop(StopRequest::LeaveDatabase);
    return std::nullopt;
}

// Shared databases belong to the machine or the network and not to a site, so that the first site that
// meets one carries it. A developer's own databases, and a developer's copy of a site, are left alone.
void UpdateDriver::applyGuards() {
    bool* met = onceOnlyFlag();
    if (met == nullptr) {
        if (lookFor(m_s.location + "\\ZOVORV.vbp").value_or(false))
            refuse(developmentDatabases);
        return;
    }
    if (*met) {
        m_s.ProcessDatabase = false;
        return;
    }
    *met = true;
    if (met == &m_processedInvoice)
        return;
    if (m_developmentMode)
        refuse(developmentDatabase);
    else
        m_s.location = localFolder;
}

/// The flag of a shared database, null for any other. ZOVWND is like any other on a developer's machine.
bool* UpdateDriver::onceOnlyFlag() {
    if (m_s.DBNAME == "ZOVUSER")
        return &m_processedLocalUser;
    if (m_s.DBNAME == "ZOVTIME")
        return &m_processedTime;
    if (m_s.DBNAME == "SNTCOST")
        return &m_processedCost;
    if (m_s.DBNAME == "ZOVWND" && !m_developmentMode)
        return &m_processedInvoice;
    return nullptr;
}

// An unknown path code leaves the file of the row before in force.
void UpdateDriver::findTargetFile(const std::string& PATHCODE) {
    const std::string file = "\\" + m_s.DBNAME + ".mdb";
    if (PATHCODE == "DBPATHS")
        m_s.targetFile = m_s.location + file;
    else if (PATHCODE == "ZOVUSER" || PATHCODE == "ZOVTIME" || PATHCODE == "SNTCOST")
        m_s.targetFile = localFolder + "\\" + PATHCODE + ".mdb";
    else if (PATHCODE == "DEFAULT" && m_developmentMode)
        refuse(developmentDatabases);
    else if (PATHCODE == "DEFAULT")
        m_s.targetFile = platform::currentFolder() + file;
    else if (PATHCODE == "WNDPATH")
        CheckWNDPATH();
    else if (PATHCODE == "NETPATH")
        CheckNETPATH();
}

void UpdateDriver::CheckWNDPATH() {
    runProcedure(m_s, "CheckWNDPATH", [this] { checkPathDatabase("WNDPATH", "ZOVWND.MDB"); });
}

void UpdateDriver::CheckNETPATH() {
    runProcedure(m_s, "CheckNETPATH", [this] { checkPathDatabase("NETPATH", "ZOVNET.MDB"); });
}

// Names the target by the one row of a path database. An error leaves the row to be processed with
// the target file of the row before.
void UpdateDriver::checkPathDatabase(const std::string& name, const std::string& targetName) {
    if (!exists(platform::currentFolder() + "\\" + name + ".mdb")) {
        m_s.ProcessDatabase = false;
        return;
    }
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wks" + name);
    data::Database database = workspace.OpenDatabase(name + ".mdb");
    data::Recordset rows = database.OpenRecordset(name);
    if (rows.RecordCount() < 1) {
        refuse(name + " Database is Empty.");
    } else {
        rows.MoveFirst();
        m_s.location = foldedText(rows.Fields("Path"));
        m_s.view.showLabel(RunLabel::NPPATHTEXT, m_s.location);
        if (m_developmentMode)
            refuse(developmentDatabases);
        else
            m_s.targetFile = m_s.location + "\\" + targetName;
    }
    rows.Close();
    database.Close();
    workspace.Close();
}

// "Ok" means no more than that nothing marked the database incomplete and that no step set ChangesMade: a
// database with nothing but conversions, or with an error box, counts as well.
void UpdateDriver::updateTarget() {
    m_s.ChangesMade = false;
    m_s.DatabaseOk = true;
    m_s.targetUpdatable = false;
    m_s.view.showLabel(RunLabel::NPDBNAME, m_s.DBNAME);
    UpdateDatabaseDefinition(m_s);
    if (m_s.stopRequest == StopRequest::LeaveDatabase)
        return;
    if (!m_s.DatabaseOk)
        logIncomplete();
    else if (!m_s.ChangesMade)
        log("Database Ok. No Changes Made.");
}

// The other pass does not come back to it; the run goes on.
void UpdateDriver::leaveDatabase() {
    m_s.stopRequest = StopRequest::None;
    m_s.ContinueRun = true;
    m_left.insert(m_s.DBNAME);
    logIncomplete();
    m_s.view.showLeft({m_s.siteName, m_s.DBNAME, m_s.lastBox});
}

void UpdateDriver::logIncomplete() {
    m_anyIncomplete = true;
    log("DATABASE DEFINITION UPDATE INCOMPLETE.", "ERROR ");
}

void UpdateDriver::log(const std::string& action, const std::string& where) {
    WriteActivityLog(m_s, where, where, where, action);
}

void UpdateDriver::refuse(const std::string& action) {
    log(action);
    m_s.ProcessDatabase = false;
}

} // namespace tol::update
