// SPDX-License-Identifier: MIT
#pragma once

#include "../CaseFolder.h"

#include "data/DBEngine.h"
#include "data/sqlite/SqliteEngine.h"
#include "support/NetworkTables.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace tol::test {

struct EngineForTests {
    EngineForTests() {
        static const bool added = [] {
            data::DBEngine::addEngine(std::make_unique<data::sqlite::SqliteEngine>());
            return true;
        }();
        static_cast<void>(added);
    }
};

/// A folder with a small network database, in which `tolctl rights` runs.
///
/// Modules N and P. Items 1 NADD and 2 NDEL of N, 3 PADD and 4 NADD of P. Templates 1 OFFICE (1 yes, 2 no)
/// and 2 YARD (2 yes, 3 yes). User 1 jdoe has both templates and 3 by hand (no), 2 mroe is an administrator
/// without rights.
class RightsCase {
  public:
    RightsCase() {
        const runtime::Null none;
        network.modules.add({{"P", "Pellin"}, {"N", "Network"}});
        network.accessItems.add({{1, "N", "NADD", "Add a site", "FRMNADD"},
                                 {2, "N", "NDEL", "Delete a site", "FRMNDEL"},
                                 {3, "P", "PADD", "Add a plan", ""},
                                 {4, "P", "NADD", "Add to a plan", ""}});
        network.templates.add({{2, "YARD", "The yard"}, {1, "OFFICE", "The office"}});
        network.templateItems.add({{1, 1, true}, {1, 2, false}, {2, 2, true}, {2, 3, true}});
        network.users.add({{2, "mroe", "Head office", true}, {1, "jdoe", "Foreman", false}});
        network.rights.add(
            {{1, 1, true, 1}, {1, 2, false, 1}, {1, 2, true, 2}, {1, 3, true, 2}, {1, 3, false, none}});
        network.tags.add({{5, 3, 3}});
        network.settings.add({{"N"}});
    }

    /// Runs `tolctl rights` with these words.
    [[nodiscard]] Outcome run(std::vector<std::string> words, const std::string& input = "") const {
        words.insert(words.begin(), "rights");
        return m_case.run(words, input);
    }
    /// What a command prints as JSON that ends with that status.
    [[nodiscard]] Json json(std::vector<std::string> words, int status = 0) const {
        words.emplace_back("--json");
        const Outcome outcome = run(words);
        EXPECT_EQ(outcome.status, status) << outcome.err;
        return Json::parse(outcome.out);
    }
    [[nodiscard]] const TempFolder& folder() const { return m_case.folder; }

  private:
    EngineForTests m_engine;
    CaseFolder m_case;

  public:
    NetworkTables network;
};

} // namespace tol::test
