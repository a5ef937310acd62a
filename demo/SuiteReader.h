// SPDX-License-Identifier: MIT
#pragma once

#include "demo/Lines.h"
#include "demo/Suite.h"

namespace tol::demo {

/// Reads the language of definition.txt and releases.txt and carries each line out on a suite: a
/// definition builds it up, the changes of a release or a Job Site alter it. A line that can't be
/// carried out (a field changed that the table does not have, say) is a std::logic_error.
class SuiteReader {
  public:
    explicit SuiteReader(Suite& suite) : m_suite(suite) {}

    /// All of a definition text.
    void readDefinition(const Text& text);
    /// The changes under one heading ("release 3", "site NORTH YARD"); none when there is no such heading.
    void readChanges(const Text& text, std::string_view heading);

  private:
    enum class Step { Add, Remove, Replace };

    void readLine();
    void readTable(Step step, const std::vector<std::string>& line);
    void readIndex(Step step, const std::vector<std::string>& line);
    void readField(Step step, std::string_view text, const std::vector<std::string>& line);
    void useGroup(const std::string& name);
    void removeField(const std::string& name);
    FieldRecipe fieldFrom(std::string_view text, const std::vector<std::string>& line) const;
    std::vector<FieldRecipe>& fields();
    TableRecipe& table();

    Suite& m_suite;
    Lines* m_lines = nullptr;
    std::map<std::string, std::vector<FieldRecipe>, std::less<>> m_groups;
    std::string m_database, m_table, m_group; ///< what the lines that follow belong to
};

/// The wanted definition, and what a release or a Job Site had: the changes under its heading are
/// applied to `suite`.
Suite wantedSuite();
Suite programsOwn();
/// The suite as that release had it (4 is the wanted one), with the changes made at that Job Site.
Suite suiteOf(int release, const std::string& site = {});

} // namespace tol::demo
