// SPDX-License-Identifier: MIT
#include "tolctl/RunSummary.h"

#include "runtime/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <initializer_list>
#include <string_view>

namespace tol::ctl {
namespace {

using runtime::trim;
using update::ActivityKind;

/// A line of the summary: how often any of these kinds came.
struct Line {
    std::string_view words; ///< before the number
    bool isTrouble;
    std::vector<ActivityKind> kinds;
};

// A kind without a line is part of another, or tells of no change.
const std::vector<Line>& summaryLines() {
    static const std::vector<Line> lines = {
        {"tables added", false, {ActivityKind::TableAdded}},
        {"fields added", false, {ActivityKind::FieldAdded}},
        {"field types changed", false, {ActivityKind::TypeChanged}},
        {"field sizes changed", false, {ActivityKind::SizeChanged}},
        {"fields removed with their data", false, {ActivityKind::FieldRemoved}},
        {"tables removed with their data", false, {ActivityKind::TableRemoved}},
        {"indexes created", false, {ActivityKind::IndexCreated}},
        {"index keys changed", false, {ActivityKind::IndexKeysChanged}},
        {"indexes removed", false, {ActivityKind::IndexRemoved}},
        {"databases left incomplete", true, {ActivityKind::DatabaseIncomplete}},
        {"tables that could not be made", true, {ActivityKind::TableExists, ActivityKind::TableNotDefined}},
        {"databases not processed",
         true,
         {ActivityKind::DevelopmentDatabase, ActivityKind::DevelopmentDatabases, ActivityKind::WNDPATHEmpty,
          ActivityKind::NETPATHEmpty, ActivityKind::DatabaseNotFound, ActivityKind::OLDDEFInUse,
          ActivityKind::OLDINDEXESInUse}},
    };
    return lines;
}

bool isTrouble(ActivityKind kind) {
    return std::ranges::any_of(summaryLines(), [kind](const Line& line) {
        return line.isTrouble && std::ranges::count(line.kinds, kind) > 0;
    });
}

constexpr std::size_t mostLines = 20;

/// The parts that are not blank.
std::string joined(std::initializer_list<std::string_view> parts) {
    std::string place;
    for (const std::string_view part : parts)
        if (const std::string_view text = trim(part); !text.empty())
            place.append(place.empty() ? "" : ", ").append(text);
    return place;
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

void RunSummary::add(const update::Activity& activity, const update::ActivityRow& row) {
    const std::string place = joined({row.PATHNAME, row.DBNAME, activity.table, activity.field});
    ++m_counts[activity.kind];
    m_sites.emplace(trim(row.PATHNAME));
    m_databases.emplace(trim(row.PATHNAME), trim(row.DBNAME));
    if (isTrouble(activity.kind))
        m_troubles.insert(fmt::format("{}: {}", place, trim(row.Action)));
    if (activity.kind == ActivityKind::SizeChanged && activity.dataMayBeLost)
        m_cut.push_back(place);
}

void RunSummary::add(const update::Question& question) {
    if (question.kind == update::QuestionKind::LoseValue)
        ++m_unconvertible[joined(
            {question.PATHNAME, question.DBNAME, question.TABLENAME, question.FIELDNAME})];
}

void RunSummary::print(std::ostream& out) const {
    out << fmt::format("\nJob Sites: {}, databases: {}\n", m_sites.size(), m_databases.size());
    for (const Line& line : summaryLines()) {
        long count = 0;
        for (const ActivityKind kind : line.kinds)
            if (const auto found = m_counts.find(kind); found != m_counts.end())
                count += found->second;
        if (count > 0)
            out << fmt::format("  {:<36}{:>6}\n", line.words, count);
    }
    printLosses(out);
    printList(out, "  What needs a look:", {m_troubles.begin(), m_troubles.end()});
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

} // namespace tol::ctl
