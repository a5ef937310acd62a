// SPDX-License-Identifier: MIT
#pragma once

#include "data/OpenTable.h"
#include "definition_update/engine/Run.h"
#include "definition_update/engine/TargetFinder.h"

#include <array>
#include <set>
#include <string>

namespace tol::update {

/// The Job Sites tagged for a run: 51 places, index 0 to 50.
inline constexpr int maxTaggedItems = 51;
using TagList = std::array<TaggedSite, maxTaggedItems>;

/// One run of the update over the tagged Job Sites, in the program's current folder: two passes over
/// DATABASES for each site, one row after the other. It owns the definition database (ZOVDEF.MDB) and its
/// ACTIVITYLOG from construction, and the Job Site list (DBPATHS.MDB) until the run starts. An object serves
/// one run. The constructor raises what opening the two databases raises.
class DefinitionUpdate {
  public:
    explicit DefinitionUpdate(UpdateView& view, std::string moduleCode = "N");
    DefinitionUpdate(const DefinitionUpdate&) = delete;
    DefinitionUpdate& operator=(const DefinitionUpdate&) = delete;

    /// The tags. Without any, the site at `currentMark` (a bookmark of DBPATHS, blank for none) is taken.
    [[nodiscard]] TagList& tagList() { return m_tagList; }
    [[nodiscard]] data::Recordset& DBPATHS() { return m_sites.rows; }
    [[nodiscard]] data::Recordset& ACTIVITYLOG() { return m_run.ACTIVITYLOG; }
    /// The same tables opened once more.
    [[nodiscard]] data::Recordset openDBPATHS() { return m_sites.database.OpenRecordset("DBPATHS"); }
    [[nodiscard]] data::Recordset openACTIVITYLOG() { return m_run.definitions.OpenRecordset("ACTIVITYLOG"); }

    /// The whole run. Run-time errors that no procedure trapped are reported here and end it at once, with
    /// nothing closed or enabled.
    void ProcessTaggedItems(const std::string& currentMark);
    void Stop(StopRequest request) { m_run.stop(request); }

    /// How the run came out, and whether a database was marked incomplete or left.
    [[nodiscard]] RunOutcome outcome() const { return m_outcome; }
    [[nodiscard]] bool anyIncomplete() const { return m_anyIncomplete; }

  private:
    bool isFillingUnfinished();
    void startRun(const std::string& currentMark);
    void tagCurrentSite(const std::string& currentMark);
    void processSites(data::Recordset& DATABASES);
    void processSite(data::Recordset& DATABASES, const TaggedSite& site);
    void processRow(const data::Recordset& DATABASES, const TaggedSite& site);
    void leaveDatabase();
    void logIncomplete();
    void showEnd(RunOutcome outcome);

    data::OpenTable m_sites{"wksPATH", "DBPATHS.MDB", "DBPATHS"};
    Run m_run;
    TagList m_tagList;
    TargetFinder m_target;
    std::set<std::string> m_left; // databases of the site in work
    RunOutcome m_outcome = RunOutcome::NotBegun;
    bool m_anyIncomplete = false;
};

} // namespace tol::update
