// SPDX-License-Identifier: MIT
#include "tolctl/SiteChoice.h"

#include "runtime/Text.h"
#include "tolctl/ExitStatus.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace tol::ctl {
namespace {

constexpr std::string_view noSite = " ";

bool sameName(std::string_view left, std::string_view right) {
    return runtime::sameText(runtime::trim(left), runtime::trim(right));
}

std::string quotedList(const std::vector<std::string>& names) {
    return "\"" + fmt::format("{}", fmt::join(names, "\", \"")) + "\"";
}

/// The command line asks for something that the data of this folder does not have or allow.
[[noreturn]] void fail(std::string text) {
    throw Failure{ExitStatus::WrongUsage, std::move(text)};
}

} // namespace

std::string SiteChoice::tag(update::DefinitionUpdate& run) {
    const std::vector<Site> sites = readSites(run.DBPATHS());
    if (m_request.names.empty() && !m_request.all)
        return onlySite(sites);
    requireKnownNames(sites);
    std::size_t place = 0;
    for (const Site& site : sites) {
        if (!wanted(site))
            continue;
        if (site.tags.DBTAG == 0)
            m_withoutNumber.push_back(site.tags.PATHNAME);
        else if (place < update::maxTaggedItems)
            run.tagList()[place++] = site.tags;
        else if (m_request.all)
            m_leftOut.push_back(site.tags.PATHNAME);
        else
            fail(fmt::format("a run takes at most {} Job Sites, and more than that bear the names given.",
                             update::maxTaggedItems));
    }
    return std::string(noSite);
}

std::vector<SiteChoice::Site> SiteChoice::readSites(data::Recordset& DBPATHS) {
    std::vector<Site> sites;
    DBPATHS.Index("DBPATHS");
    for (; !DBPATHS.AtEOF(); DBPATHS.MoveNext())
        sites.push_back({DBPATHS.Bookmark(), update::siteOf(DBPATHS)});
    return sites;
}

std::string SiteChoice::onlySite(const std::vector<Site>& sites) const {
    if (sites.empty())
        return std::string(noSite);
    if (sites.size() == 1)
        return sites.front().mark;
    std::vector<std::string> names;
    names.reserve(sites.size());
    for (const Site& site : sites)
        names.emplace_back(runtime::trim(site.tags.PATHNAME));
    fail(fmt::format("there are {} Job Sites: choose with --site NAME or --all. They are {}.", sites.size(),
                     quotedList(names)));
}

bool SiteChoice::wanted(const Site& site) const {
    return m_request.all || std::ranges::any_of(m_request.names, [&](const std::string& name) {
               return sameName(name, site.tags.PATHNAME);
           });
}

void SiteChoice::requireKnownNames(const std::vector<Site>& sites) const {
    std::vector<std::string> unknown;
    for (const std::string& name : m_request.names)
        if (std::ranges::none_of(sites, [&](const Site& site) { return sameName(name, site.tags.PATHNAME); }))
            unknown.push_back(name);
    if (!unknown.empty())
        fail(fmt::format("no Job Site is named {}.", quotedList(unknown)));
}

} // namespace tol::ctl
