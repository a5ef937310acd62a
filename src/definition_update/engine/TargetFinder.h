// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/Run.h"

#include <optional>
#include <string>

namespace tol::update {

/// A Job Site tagged for a run, or a free place of the tag list, which has the tag 0.
struct TaggedSite {
    std::int32_t DBTAG = 0;
    std::string PATHNAME = " ";
    std::string PathText = " ";
};
/// The site of that row of DBPATHS, its folder trimmed and in capitals.
TaggedSite siteOf(const data::Recordset& DBPATHS);

/// Finds the file that a row of DATABASES stands for at a site. It alone knows the path codes, which
/// databases are shared by all sites, and what must not be touched on a developer's machine.
class TargetFinder {
  public:
    TargetFinder(Run& run, std::string moduleCode) : m_run(run), m_moduleCode(std::move(moduleCode)) {}

    /// To be called when a run starts.
    void start();
    /// Whether the database is to be processed. Where it is not, and a person should know why, that is in the
    /// log; one for which that can't be told is left.
    bool find(const data::Recordset& DATABASES, const TaggedSite& site);
    /// The full name of the file found last.
    [[nodiscard]] const std::string& file() const { return m_file; }

    /// Whether this is a developer's machine (its marker file exists).
    static bool developmentMode();

  private:
    void applyGuards();
    bool* onceOnlyFlag();
    void findFile(const std::string& PATHCODE);
    void requireFile(const TaggedSite& site, bool optional);
    /// Whether the file is there. Nothing, after a box, where that can't be told: the database is left.
    std::optional<bool> lookFor(const std::string& file);
    void CheckWNDPATH();
    void CheckNETPATH();
    void checkPathDatabase(const std::string& name, const std::string& targetName, ActivityKind empty);
    void refuse(ActivityKind reason);

    Run& m_run;
    std::string m_moduleCode;
    bool m_process = false; // the row is still to be processed
    std::string m_location; // the site's folder, or the fixed folder of a shared database
    std::string m_file;
    bool m_developmentMode = false;
    // Shared databases that the run has met, each processed once for all sites.
    bool m_processedLocalUser = false, m_processedTime = false, m_processedCost = false,
         m_processedInvoice = false;
};

} // namespace tol::update
