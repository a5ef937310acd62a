// SPDX-License-Identifier: MIT
#pragma once

#include "FileState.h"
#include "demo_support/DemoFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace tol::test {

/// What a file holds: its definitions, and the values of their fields.
struct Content {
    Definitions definitions;
    FieldValues values;
};

inline constexpr int demoSites = 6;

/// Updates of a demo, each on a fresh copy of it: over the Job Site whose place in the list is the test's
/// number, or over all where that is the place of none.
class DemoRun : public testing::TestWithParam<int> {
  protected:
    void SetUp() override;

    /// Goes into a fresh copy of the demo.
    void enterCopy();
    /// A whole run; its exit status.
    [[nodiscard]] int update() const;
    [[nodiscard]] const std::vector<std::string>& arguments() const { return m_arguments; }
    /// Takes what the copy holds now for what a whole run leaves: all that is wanted.
    void rememberWholeRun();

    /// All database files of the copy.
    [[nodiscard]] static std::vector<std::filesystem::path> databases();
    /// Those of them that a run may change.
    [[nodiscard]] std::set<std::filesystem::path> filesOfRun() const;
    void expectSoundFiles() const;
    /// Each field is the old one or the new one, with all its values, and the log tells of what is gone.
    void expectWholeFields() const;
    /// Whether all definitions are those of a whole run.
    [[nodiscard]] bool isComplete() const;
    void expectValuesOfAWholeRun() const;
    void expectOthersUntouched() const;

    DemoFolder demo;

  private:
    struct Target {
        std::string database;
        Content before, after;
    };

    [[nodiscard]] std::filesystem::path workshop() const { return demo.path() / "copies"; }
    void rememberContents(Content Target::*when);
    static void expectWhole(const std::string& place, const Content& now, const Target& target);
    static void expectTold(const Content& now, const Target& target, const std::set<std::string>& log);

    std::vector<std::string> m_arguments{"update", "--on-unconvertible", "continue"};
    std::map<std::string, Target> m_targets; ///< by their files, as the data names them
};

} // namespace tol::test
