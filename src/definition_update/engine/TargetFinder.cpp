// SPDX-License-Identifier: MIT
#include "definition_update/engine/TargetFinder.h"

#include "data/OpenTable.h"
#include "definition_update/engine/ActivityLog.h"
#include "definition_update/engine/DefinitionRows.h"
#include "definition_update/engine/Procedure.h"
#include "platform/Paths.h"
#include "platform/System.h"
#include "runtime/Conversions.h"
#include "shell/vdfunctions/vdLocation.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdfunctions/vdTexts.h"

namespace tol::update {

using shell::vdNullCheckText;

namespace {

const std::string localFolder = "C:\\ZOVUSER";

bool exists(const std::string& file) {
    return shell::vdNotBlank(shell::vdDir(file));
}

} // namespace

TaggedSite siteOf(const data::Recordset& DBPATHS) {
    return {runtime::toLong(shell::vdNullCheck(DBPATHS.Fields("DBTAG"))),
            vdNullCheckText(DBPATHS.Fields("PATHNAME")), foldedText(DBPATHS.Fields("PathText"))};
}

bool TargetFinder::developmentMode() {
    return exists("C:\\VBP\\ZOV\\ZOVORV.vbp");
}

void TargetFinder::start() {
    m_developmentMode = developmentMode();
    m_processedLocalUser = m_processedTime = m_processedCost = m_processedInvoice = false;
}

bool TargetFinder::find(const data::Recordset& DATABASES, const TaggedSite& site) {
    const std::string PATHCODE = foldedText(DATABASES.Fields("PATHCODE"));
    const std::string modules = vdNullCheckText(DATABASES.Fields("Modules"));
    const bool optional = runtime::toBoolean(shell::vdNullCheck(DATABASES.Fields("Optional"))) ||
                          modules.find(m_moduleCode) == std::string::npos;
    m_process = true;
    m_location = site.PathText;
    applyGuards();
    if (m_process)
        findFile(PATHCODE);
    if (m_process)
        requireFile(site, optional && m_moduleCode != "A");
    return m_process;
}

// A site whose folder is not there is told of even where none of its databases has to be there.
void TargetFinder::requireFile(const TaggedSite& site, bool optional) {
    const std::optional<bool> found = lookFor(m_file);
    if (!found || *found)
        return;
    m_process = false;
    if (!optional)
        WriteActivityLog(m_run, {ActivityKind::DatabaseNotFound});
    else if (m_location != site.PathText)
        return;
    if (const std::string folder = platform::missingFolder(m_file); !folder.empty())
        m_run.view.showMissing({m_run.siteName, folder});
}

std::optional<bool> TargetFinder::lookFor(const std::string& file) {
    bool found = false;
    if (runStep(m_run, "ProcessTaggedItems", [&] { found = exists(file); }))
        return found;
    m_process = false;
    m_run.stop(StopRequest::LeaveDatabase);
    return std::nullopt;
}

// Shared databases belong to the machine or the network and not to a site, so that the first site that
// meets one carries it. A developer's own databases, and a developer's copy of a site, are left alone.
void TargetFinder::applyGuards() {
    bool* met = onceOnlyFlag();
    if (met == nullptr) {
        if (lookFor(platform::below(m_location, "ZOVORV.vbp")).value_or(false))
            refuse(ActivityKind::DevelopmentDatabases);
        return;
    }
    if (*met) {
        m_process = false;
        return;
    }
    *met = true;
    if (met == &m_processedInvoice)
        return;
    if (m_developmentMode)
        refuse(ActivityKind::DevelopmentDatabase);
    else
        m_location = localFolder;
}

/// The flag of a shared database, null for any other. ZOVWND is like any other on a developer's machine.
bool* TargetFinder::onceOnlyFlag() {
    if (m_run.DBNAME == "ZOVUSER")
        return &m_processedLocalUser;
    if (m_run.DBNAME == "ZOVTIME")
        return &m_processedTime;
    if (m_run.DBNAME == "SNTCOST")
        return &m_processedCost;
    if (m_run.DBNAME == "ZOVWND" && !m_developmentMode)
        return &m_processedInvoice;
    return nullptr;
}

// An unknown path code leaves the file of the row before in force.
void TargetFinder::findFile(const std::string& PATHCODE) {
    const std::string file = m_run.DBNAME + ".mdb";
    if (PATHCODE == "DBPATHS")
        m_file = platform::below(m_location, file);
    else if (PATHCODE == "ZOVUSER" || PATHCODE == "ZOVTIME" || PATHCODE == "SNTCOST")
        m_file = platform::below(localFolder, PATHCODE + ".mdb");
    else if (PATHCODE == "DEFAULT" && m_developmentMode)
        refuse(ActivityKind::DevelopmentDatabases);
    else if (PATHCODE == "DEFAULT")
        m_file = platform::below(platform::currentFolder(), file);
    else if (PATHCODE == "WNDPATH")
        CheckWNDPATH();
    else if (PATHCODE == "NETPATH")
        CheckNETPATH();
}

void TargetFinder::CheckWNDPATH() {
    runProcedure(m_run, "CheckWNDPATH",
                 [this] { checkPathDatabase("WNDPATH", "ZOVWND.MDB", ActivityKind::WNDPATHEmpty); });
}

void TargetFinder::CheckNETPATH() {
    runProcedure(m_run, "CheckNETPATH",
                 [this] { checkPathDatabase("NETPATH", "ZOVNET.MDB", ActivityKind::NETPATHEmpty); });
}

// Names the target by the one row of a path database. An error leaves the row to be processed with
// the target file of the row before.
void TargetFinder::checkPathDatabase(const std::string& name, const std::string& targetName,
                                     ActivityKind empty) {
    if (!exists(platform::below(platform::currentFolder(), name + ".mdb"))) {
        m_process = false;
        return;
    }
    data::OpenTable table("wks" + name, name + ".mdb", name);
    data::Recordset& rows = table.rows;
    if (rows.RecordCount() < 1) {
        refuse(empty);
    } else {
        rows.MoveFirst();
        m_location = foldedText(rows.Fields("Path"));
        m_run.view.showLabel(RunLabel::NPPATHTEXT, m_location);
        if (m_developmentMode)
            refuse(ActivityKind::DevelopmentDatabases);
        else
            m_file = platform::below(m_location, targetName);
    }
    table.Close();
}

void TargetFinder::refuse(ActivityKind reason) {
    WriteActivityLog(m_run, {reason});
    m_process = false;
}

} // namespace tol::update
