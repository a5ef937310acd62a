// SPDX-License-Identifier: MIT
#include "jobsites/model/JobSites.h"

#include "runtime/Conversions.h"
#include "runtime/Text.h"
#include "shell/vdfunctions/vdNullCheck.h"

#include <functional>

namespace tol::jobsites {
namespace {

JobSite siteOf(data::Recordset& DBPATHS) {
    return {shell::vdNullCheckText(DBPATHS.Fields("PATHNAME")),
            shell::vdNullCheckText(DBPATHS.Fields("PathText")),
            runtime::toLong(shell::vdNullCheck(DBPATHS.Fields("DBTAG")))};
}

std::optional<JobSite> findFirst(data::Recordset& DBPATHS,
                                 const std::function<bool(const JobSite&)>& wanted) {
    DBPATHS.Index("DBPATHS");
    for (; !DBPATHS.AtEOF(); DBPATHS.MoveNext())
        if (JobSite site = siteOf(DBPATHS); wanted(site))
            return site;
    return std::nullopt;
}

std::string folded(const std::string& name) {
    return runtime::upperCase(runtime::trim(name));
}

} // namespace

// A walk and not a search of the index: what the list holds need be neither trimmed nor in capitals.
std::optional<JobSite> findJobSite(data::Recordset& DBPATHS, const std::string& name) {
    return findFirst(DBPATHS,
                     [wanted = folded(name)](const JobSite& site) { return folded(site.name) == wanted; });
}

std::optional<JobSite> findJobSite(data::Recordset& DBPATHS, std::int32_t tag) {
    return findFirst(DBPATHS, [tag](const JobSite& site) { return site.tag == tag; });
}

} // namespace tol::jobsites
