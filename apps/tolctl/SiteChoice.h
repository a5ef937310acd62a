// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/DefinitionUpdate.h"

#include <string>
#include <vector>

namespace tol::ctl {

/// Which Job Sites a run is for, as the command line says it.
struct SiteRequest {
    std::vector<std::string> names;
    bool all = false;
};

/// Tags the Job Sites of a run, in the order of the list. A name stands for all sites that bear it, in
/// capitals or not. Without any request the only site of the list is taken, as at the desk, where it is
/// the one under the highlight.
class SiteChoice {
  public:
    explicit SiteChoice(const SiteRequest& request) : m_request(request) {}

    /// Fills the tag list and returns the mark of the current site, blank unless that alone is taken.
    /// Throws Failure (wrong usage) for a name that no site bears, for more sites than a run takes, and for
    /// no request where the list has several.
    std::string tag(update::DefinitionUpdate& run);
    /// Names of the sites behind the last place of the tag list, with `all`.
    [[nodiscard]] const std::vector<std::string>& leftOut() const { return m_leftOut; }
    /// Names of chosen sites whose number is 0. That stands for a free place of the tag list, so that they
    /// can't be tagged.
    [[nodiscard]] const std::vector<std::string>& withoutNumber() const { return m_withoutNumber; }

  private:
    struct Site {
        std::string mark;
        update::TaggedSite tags;
    };

    [[nodiscard]] static std::vector<Site> readSites(data::Recordset& DBPATHS);
    [[nodiscard]] std::string onlySite(const std::vector<Site>& sites) const;
    [[nodiscard]] bool wanted(const Site& site) const;
    void requireKnownNames(const std::vector<Site>& sites) const;

    const SiteRequest& m_request;
    std::vector<std::string> m_leftOut, m_withoutNumber;
};

} // namespace tol::ctl
