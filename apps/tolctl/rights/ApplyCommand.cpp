// SPDX-License-Identifier: MIT
#include "data/engine/FileError.h"
#include "rights/model/ApplyRights.h"
#include "tolctl/Csv.h"
#include "tolctl/Interrupt.h"
#include "tolctl/rights/RightsCommand.h"
#include "tolctl/rights/RightsDatabase.h"
#include "tolctl/rights/RightsQuestion.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <map>

namespace tol::ctl {
namespace {

using rights::RightChanges;
using rights::RightWish;
using rights::Verdict;

constexpr const char* closing =
    "A line is user,item,module,allowed. The module may be blank where the code stands in one module only;\n"
    "allowed is Y or N. A first line with these four names is passed over. All lines are written or none: "
    "with\n"
    "a line that is refused nothing is, and the status is 1.";

/// A line of the file, as it stands there and as it is understood.
struct WishLine {
    std::size_t number = 0;
    RightWish wish;
    Verdict verdict = {};
};

/// All that is still to be read. What can't be read leaves the stream bad.
std::string rest(std::istream& in) {
    std::string text;
    std::array<char, 65536> piece{};
    while (in.read(piece.data(), piece.size()) || in.gcount() > 0)
        text.append(piece.data(), static_cast<std::size_t>(in.gcount()));
    stopIfInterrupted(); // a read that a signal broke off looks like the end of the text
    return text;
}

/// The whole text of a file, or of standard input for "-".
std::string textOf(const std::string& name) {
    std::ifstream file;
    if (name != "-")
        file.open(name, std::ios::binary);
    const bool isOpen = file.good();
    std::string text = isOpen ? rest(name == "-" ? std::cin : file) : std::string();
    if (!isOpen || file.bad())
        throw Failure{ExitStatus::CouldNotStart,
                      fmt::format("'{}' can't be read: {}.", name, std::strerror(errno))};
    return text;
}

bool isHeader(const CsvRecord& record) {
    static constexpr const char* names[] = {"user", "item", "module", "allowed"};
    return std::ranges::equal(record.fields, names, rights::sameName);
}

/// What has not the form of a line wishes for nothing that could be written.
RightWish wishOf(const CsvRecord& record) {
    constexpr std::size_t fieldCount = 4;
    std::vector<std::string> fields = record.fields;
    const bool hasForm = record.wellFormed && fields.size() == fieldCount;
    fields.resize(fieldCount);
    return {fields[0], fields[1], fields[2], hasForm ? fields[3] : ""};
}

std::vector<WishLine> readLines(const std::string& file) {
    std::vector<CsvRecord> records = readCsv(textOf(file));
    if (!records.empty() && isHeader(records.front()))
        records.erase(records.begin());
    std::vector<WishLine> lines;
    lines.reserve(records.size());
    for (const CsvRecord& record : records)
        lines.push_back({record.line, wishOf(record), {}});
    return lines;
}

Table tableOfLines(const std::vector<WishLine>& lines) {
    using Line = const WishLine&;
    return tableOf<WishLine>(
        lines, {{{"line", "Line"}, [](Line line) { return Cell{line.number}; }},
                {{"user", "User"}, [](Line line) { return Cell{line.wish.user}; }},
                {{"item", "Item"}, [](Line line) { return Cell{line.wish.item}; }},
                {{"module", "Module"}, [](Line line) { return Cell{line.wish.module}; }},
                {{"allowed", "Allowed"}, [](Line line) { return Cell{line.wish.allowed}; }},
                {{"verdict", "Verdict"}, [](Line line) { return Cell{rights::wordFor(line.verdict)}; }}});
}

/// "2 added, 1 unchanged"
std::string summary(const RightChanges& changes) {
    std::map<Verdict, std::size_t> counts;
    for (const Verdict verdict : changes.verdicts)
        ++counts[verdict];
    std::string text;
    for (const auto& [verdict, count] : counts)
        text += fmt::format("{}{} {}", text.empty() ? "" : ", ", count, rights::wordFor(verdict));
    return text.empty() ? "no lines" : text;
}

/// tolctl rights apply: sets rights by hand, line by line of a file.
class ApplyCommand : public RightsQuestion {
  public:
    explicit ApplyCommand(CLI::App& rights);
    ExitStatus execute() override;

  private:
    [[nodiscard]] RightChanges apply(const std::vector<RightWish>& wishes) const;

    std::string m_file;
    bool m_dryRun = false;
};

ApplyCommand::ApplyCommand(CLI::App& rights)
    : RightsQuestion(rights, "apply", "Set rights by hand from a file of comma-separated values") {
    addArgument("FILE", m_file, "The file, - for standard input");
    app().add_flag("--dry-run", m_dryRun, "Only tell what would become of each line");
    app().footer(closing);
}

/// The changes, written unless one of them is refused.
RightChanges writeChanges(RightsDatabase& network, const std::vector<RightWish>& wishes) {
    network.workspace.BeginTrans();
    RightChanges changes = rights::judge(rights::readTables(network.database), wishes);
    if (changes.anyRefused()) {
        network.workspace.Rollback();
        return changes;
    }
    data::Recordset rows = network.database.OpenRecordset(rights::Right::table);
    rights::write(rows, changes);
    stopIfInterrupted();
    network.workspace.CommitTrans();
    return changes;
}

RightChanges ApplyCommand::apply(const std::vector<RightWish>& wishes) const {
    RightsDatabase network(m_dryRun ? RightsDatabase::Use::Read : RightsDatabase::Use::Write);
    try {
        return m_dryRun ? rights::judge(rights::readTables(network.database), wishes)
                        : writeChanges(network, wishes);
    } catch (const runtime::RuntimeError& error) {
        throw data::aboutFile(error, network.database.Name());
    }
}

ExitStatus ApplyCommand::execute() {
    std::vector<WishLine> lines = readLines(m_file);
    std::vector<RightWish> wishes;
    wishes.reserve(lines.size());
    for (const WishLine& line : lines)
        wishes.push_back(line.wish);
    const RightChanges changes = apply(wishes);
    for (std::size_t i = 0; i < lines.size(); ++i)
        lines[i].verdict = changes.verdicts[i];

    const bool isWritten = !m_dryRun && !changes.anyRefused();
    std::cerr << summary(changes) << (isWritten ? ".\n" : "; nothing was written.\n");
    return answer(tableOfLines(lines),
                  changes.anyRefused() ? ExitStatus::CouldNotStart : ExitStatus::Finished,
                  isWritten ? ExitStatus::NeedsAttention : ExitStatus::CouldNotStart);
}

} // namespace

std::unique_ptr<Command> applyCommand(CLI::App& rights) {
    return std::make_unique<ApplyCommand>(rights);
}

} // namespace tol::ctl
