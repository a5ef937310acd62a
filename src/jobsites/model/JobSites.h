// SPDX-License-Identifier: MIT
#pragma once

#include "data/Recordset.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tol::jobsites {

/// A row of DBPATHS.
struct JobSite {
    std::string name;
    std::string folder;
    std::int32_t tag = 0;
};

/// The first Job Site, in the order of the list, whose name this is, without regard to case and to blanks
/// around it; or whose number this is. DBPATHS then stands on it.
std::optional<JobSite> findJobSite(data::Recordset& DBPATHS, const std::string& name);
std::optional<JobSite> findJobSite(data::Recordset& DBPATHS, std::int32_t tag);

} // namespace tol::jobsites
