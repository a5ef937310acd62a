// SPDX-License-Identifier: MIT
#include "tolctl/RunSummary.h"

#include "runtime/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

namespace tol::ctl {
namespace {

using runtime::trim;

enum class Meaning { Change, Loss, Trouble, Unchanged };

struct Kind {
    std::string_view start; ///< how the action begins
    Meaning meaning;
    std::string_view words; ///< for the summary, before the number
};

// The first that fits decides.
constexpr std::array<Kind, RunSummary::kinds> kindTable = {{
    {"Added New Table.", Meaning::Change, "tables added"},
    {"Added New Field", Meaning::Change, "fields added"},
    {"Added Field.", Meaning::Unchanged, ""}, // part of a table added
    {"Added Field to Index Key.", Meaning::Unchanged, ""},
    {"Changed Field Type.", Meaning::Change, "field types changed"},
    {"Changed Field Size.", Meaning::Change, "field sizes changed"},
    {"Removed Old Field.", Meaning::Loss, "fields removed with their data"},
    {"Table: ", Meaning::Loss, "tables removed with their data"},
    {"Created New Index.", Meaning::Change, "indexes created"},
    {"Changed Index Keys.", Meaning::Change, "index keys changed"},
    {"Index Removed.", Meaning::Change, "indexes removed"},
    {"Database Ok.", Meaning::Unchanged, ""},
    {"DATABASE DEFINITION UPDATE INCOMPLETE.", Meaning::Trouble, "databases left incomplete"},
    {"ERROR CREATING TABLE.", Meaning::Trouble, "tables that could not be made"},
    {"", Meaning::Trouble, "databases not processed"},
}};

constexpr std::size_t mostLines = 20;

std::string placeOf(const update::ActivityRow& row) {
    std::string place;
    for (const std::string& part : {row.PATHNAME, row.DBNAME, row.TABLENAME, row.FIELDNAME}) {
        const std::string_view text = trim(part);
        if (!text.empty() && text != "ERROR")
            place.append(place.empty() ? "" : ", ").append(text);
    }
    return place;
}

/// "CREW, PAY" of a question about a value that can't convert: table and field, which stand in its
/// first line.
std::string fieldOf(std::string_view question) {
    constexpr std::string_view beforeField = "Field: ";
    constexpr std::string_view beforeTable = " located in Table: ";
    const std::string_view line = question.substr(0, question.find_first_of("\r\n"));
    const auto field = line.find(beforeField);
    const auto table = line.rfind(beforeTable);
    if (field == std::string_view::npos || table == std::string_view::npos || table < field)
        return std::string(line);
    const auto fieldName = field + beforeField.size();
    return fmt::format("{}, {}", line.substr(table + beforeTable.size()),
                       line.substr(fieldName, table - fieldName));
}

/// The lines with a heading; when there are many of them the rest is only counted.
void printList(std::ostream& out, std::string_view heading, const std::vector<std::string>& lines) {
    if (lines.empty())
        return;
    out << heading << "\n";
    for (std::size_t i = 0; i < std::min(lines.size(), mostLines); ++i)
        out << "    " << lines[i] << "\n";
    if (lines.size() > mostLines)
        out << fmt::format("    and {} more\n", lines.size() - mostLines);
}

} // namespace

void RunSummary::add(const update::ActivityRow& row) {
    const auto kind = std::find_if(kindTable.begin(), kindTable.end(),
                                   [&](const Kind& entry) { return row.Action.starts_with(entry.start); });
    ++m_counts[static_cast<std::size_t>(kind - kindTable.begin())];
    m_sites.emplace(trim(row.PATHNAME));
    m_databases.emplace(trim(row.PATHNAME), trim(row.DBNAME));
    if (kind->meaning == Meaning::Trouble)
        m_troubles.insert(fmt::format("{}: {}", placeOf(row), trim(row.Action)));
    if (row.Action.find("Some Data may be lost.") != std::string::npos)
        m_cut.push_back(placeOf(row));
}

void RunSummary::addUnconvertible(const std::string& where, const std::string& question) {
    ++m_unconvertible[fmt::format("{}, {}", where, fieldOf(question))];
}

void RunSummary::print(std::ostream& out) const {
    out << fmt::format("\nJob Sites: {}, databases: {}\n", m_sites.size(), m_databases.size());
    for (std::size_t i = 0; i < kinds; ++i)
        if (m_counts[i] > 0 && kindTable[i].meaning != Meaning::Unchanged)
            out << fmt::format("  {:<36}{:>6}\n", kindTable[i].words, m_counts[i]);
    printLosses(out);
    printTroubles(out);
}

void RunSummary::printNotes(std::ostream& out, const std::vector<update::DefinitionNote>& notes) {
    std::vector<std::string> lines;
    for (const update::DefinitionNote& note : notes)
        lines.push_back(
            fmt::format("{}, {}: {}", trim(note.PATHNAME), trim(note.DBNAME), data::noteText(note.note)));
    printList(out, "  What other programs had declared and could not be kept as it was:", lines);
}

void RunSummary::printLosses(std::ostream& out) const {
    std::vector<std::string> lines;
    for (const auto& [field, rows] : m_unconvertible)
        lines.push_back(fmt::format("{} ({} {})", field, rows, rows == 1 ? "row" : "rows"));
    printList(out, "  Values that could not convert, and so were lost:", lines);
    printList(out, "  Fields made shorter, where longer texts may have been cut:", m_cut);
}

void RunSummary::printTroubles(std::ostream& out) const {
    printList(out, "  What needs a look:", {m_troubles.begin(), m_troubles.end()});
}

} // namespace tol::ctl
