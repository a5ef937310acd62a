// SPDX-License-Identifier: MIT
#pragma once

#include "data/DBEngine.h"
#include "definition_update/engine/UpdateView.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>

namespace tol::update {

/// The Job Sites tagged for a run: 51 places, index 0 to 50; a tag of 0 is a free place.
struct TaggedSite {
    std::int32_t DBTAG = 0;
    std::string PATHNAME = " ";
    std::string PathText = " ";
};
inline constexpr int maxTaggedItems = 51;
using TagList = std::array<TaggedSite, maxTaggedItems>;

/// What may be asked of a run while it works; the later ones outweigh the earlier. It is done at the next
/// yield.
enum class StopRequest {
    None,
    LeaveDatabase, ///< go on with the next database; a field under conversion stays as it was
    EndRun,        ///< end the run; a field under conversion stays as it was
    Cancel,        ///< end the run; a change of type is finished with the rows that it has reached, and the
                   ///< others lose their values in that field
};

/// One run of the update over the tagged Job Sites, in the program's current folder. It owns the
/// definition database (ZOVDEF.MDB) and its ACTIVITYLOG from construction, and the Job Site list
/// (DBPATHS.MDB) until the run starts. An object serves one run. The constructor raises what opening
/// the two databases raises; ProcessTaggedItems traps its own errors and reports them through
/// vdProcessError.
class DefinitionUpdate {
  public:
    explicit DefinitionUpdate(UpdateView& view, std::string moduleCode = "N");
    DefinitionUpdate(const DefinitionUpdate&) = delete;
    DefinitionUpdate& operator=(const DefinitionUpdate&) = delete;
    ~DefinitionUpdate();

    /// The tags. Without any, the site at `currentMark` (a bookmark of DBPATHS, blank for none) is taken.
    [[nodiscard]] TagList& tagList();
    [[nodiscard]] data::Recordset& DBPATHS();
    [[nodiscard]] data::Recordset& ACTIVITYLOG();
    /// The same tables opened once more.
    [[nodiscard]] data::Recordset openDBPATHS();
    [[nodiscard]] data::Recordset openACTIVITYLOG();

    void ProcessTaggedItems(const std::string& currentMark);
    void Stop(StopRequest request);
    [[nodiscard]] bool ContinueRun() const;

    /// What a terminal run needs to tell its exit status: a database was marked incomplete or left, and
    /// whether the run came to its regular end ("Finished" or "STOPPED").
    [[nodiscard]] bool anyIncomplete() const;
    [[nodiscard]] bool ended() const;

    /// Whether this is a developer's machine (its marker file exists).
    static bool developmentMode();

  private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace tol::update
