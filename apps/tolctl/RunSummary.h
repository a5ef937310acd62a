// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/UpdateView.h"

#include <map>
#include <ostream>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace tol::ctl {

/// What a person wants to know when a run is over: what was changed, where data was lost, what needs
/// attention. It is told each row of the log and each question.
class RunSummary {
  public:
    void add(const update::Activity& activity, const update::ActivityRow& row);
    void add(const update::Question& question);

    void print(std::ostream& out) const;
    static void printNotes(std::ostream& out, const std::vector<update::DefinitionNote>& notes);

  private:
    void printLosses(std::ostream& out) const;

    std::map<update::ActivityKind, long> m_counts;
    std::set<std::pair<std::string, std::string>> m_databases; ///< site and database
    std::set<std::string> m_sites;
    std::vector<std::string> m_cut;              ///< fields whose texts were made shorter
    std::map<std::string, long> m_unconvertible; ///< rows by field
    std::set<std::string> m_troubles; ///< what could not be processed; both passes over a site report it
};

} // namespace tol::ctl
