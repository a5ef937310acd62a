// SPDX-License-Identifier: MIT
#pragma once

#include "jobsites/model/JobSites.h"
#include "tolctl/ExitStatus.h"
#include "tolctl/Table.h"

#include <string>
#include <vector>

namespace tol::ctl {

/// One thing that a command has to tell.
struct Fact {
    const char* name;  ///< for programs
    const char* title; ///< for people
    Cell cell;
};

/// Prints the facts, as one JSON object or a line for each; the status, or another one when they can't be
/// printed.
ExitStatus answer(const std::vector<Fact>& facts, bool json, ExitStatus status = ExitStatus::Finished);

Fact locationFact(const std::string& location);
Fact jobSiteFact(const jobsites::JobSite& site);

} // namespace tol::ctl
