// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/UpdateState.h"

#include <optional>
#include <set>
#include <string>

namespace tol::update {

/// The walk of a run: tagged sites, two passes over DATABASES for each, one row after the other. It alone
/// knows which databases are shared by all sites and what a developer's machine must not touch.
class UpdateDriver {
  public:
    explicit UpdateDriver(UpdateState& state) : m_s(state) {}

    /// A whole run; `DBPATHS` is the list of sites, which it closes. Run-time errors that no procedure
    /// trapped are reported here and end the run at once, with nothing closed or enabled.
    void ProcessTaggedItems(data::Recordset& DBPATHS, const std::string& currentMark);

    [[nodiscard]] bool ended() const { return m_ended; }
    [[nodiscard]] bool anyIncomplete() const { return m_anyIncomplete; }

  private:
    struct DatabaseRow;

    bool isFillingUnfinished();
    void startRun(data::Recordset& DBPATHS, const std::string& currentMark);
    void tagCurrentSite(data::Recordset& DBPATHS, const std::string& currentMark);
    void processSites(data::Recordset& DATABASES);
    void processSite(data::Recordset& DATABASES, const TaggedSite& site);
    void showOutcome();

    void processRow(const DatabaseRow& row, const TaggedSite& site);
    void applyGuards();
    bool* onceOnlyFlag();
    void findTargetFile(const std::string& PATHCODE);
    void requireTarget(const TaggedSite& site);
    /// Whether the file is there. Nothing, after a box, where that can't be told: the database is left.
    std::optional<bool> lookFor(const std::string& file);
    void CheckWNDPATH();
    void CheckNETPATH();
    void checkPathDatabase(const std::string& name, const std::string& targetName);
    void updateTarget();
    void leaveDatabase();
    void logIncomplete();

    void log(const std::string& action, const std::string& where = " ");
    void refuse(const std::string& action);

    UpdateState& m_s;
    bool m_optionalDatabase = false;
    bool m_developmentMode = false;
    // Shared databases that the run has met, each processed once for all sites.
    bool m_processedLocalUser = false, m_processedTime = false, m_processedCost = false,
         m_processedInvoice = false;
    std::set<std::string> m_left; // databases of the site in work
    bool m_ended = false;
    bool m_anyIncomplete = false;
};

} // namespace tol::update
