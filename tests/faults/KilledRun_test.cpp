// SPDX-License-Identifier: MIT
#include "FileState.h"
#include "data/DBEngine.h"
#include "demo_support/DemoFolder.h"
#include "platform/Paths.h"
#include "runtime/Text.h"
#include "support/Program.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <set>
#include <thread>

namespace tol::test {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

/// Kills of runs over one Job Site, which the sites share out among themselves, and of runs over all.
constexpr int killsOfSites = 60;
constexpr int killsOfAll = 4;
constexpr int sites = 6;
constexpr unsigned seed = 20'240;

/// By hand there may be more: so many times as many as TOL_KILLS says.
int killsHere(int site) {
    const char* const factor = std::getenv("TOL_KILLS");
    const int all = (site < sites ? killsOfSites / sites : killsOfAll);
    return factor == nullptr ? all : all * std::atoi(factor);
}

bool isDatabase(const fs::path& file) {
    return runtime::upperCase(file.extension().native()) == ".MDB";
}

std::string bytesOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// What a file holds: its definitions, and the values of their fields.
struct Content {
    Definitions definitions;
    FieldValues values;
};

Content contentOf(const std::string& file) {
    return {definitionsOf(file), valuesIn(platform::hostPath(file))};
}

/// The field of that name, null for none.
const data::FieldDef* find(const Content& content, const std::string& table, const std::string& field) {
    const auto found = content.definitions.find(table);
    const int position = found == content.definitions.end() ? -1 : found->second.findField(field);
    return position < 0 ? nullptr : &found->second.fields[static_cast<std::size_t>(position)];
}

bool sameKind(const data::FieldDef* left, const data::FieldDef& right) {
    return left != nullptr && left->type == right.type && left->size == right.size;
}

/// Calls the function with each table's and field's name.
template <typename Visit>
void forEachField(const Content& content, Visit visit) {
    for (const auto& [table, definition] : content.definitions)
        for (const data::FieldDef& field : definition.fields)
            visit(table, field);
}

/// A run over a whole demo, killed again and again, each time on a fresh copy: over one of its Job Sites, or
/// over all where the number is none of a site.
class KilledRun : public testing::TestWithParam<int> {
  protected:
    void SetUp() override;

    /// A whole run; its exit status.
    [[nodiscard]] int update() const {
        return Program(TOL_CTL_PROGRAM, m_arguments, fs::current_path()).wait();
    }
    /// Goes into a fresh copy of the demo.
    void enterCopy();
    /// Starts a run and kills it at that moment; false when it ended before.
    [[nodiscard]] bool killAfter(Clock::duration moment) const;
    /// How long an undisturbed run takes here and now.
    Clock::duration runTime();

    void expectReadable() const;
    void expectSoundFiles() const;
    /// Each field is the old one or the new one, with all its values, and the log tells of what is gone.
    void expectWholeFields() const;
    void expectValuesOfAWholeRun() const;
    void expectOthersUntouched() const;
    [[nodiscard]] bool isWanted() const;

    DemoFolder demo;

  private:
    struct Target {
        std::string database;
        Content before, after;
    };

    [[nodiscard]] fs::path workshop() const { return demo.path() / "copies"; }
    void rememberContents(Content Target::*when);
    static void expectWhole(const std::string& place, const Content& now, const Target& target);
    static void expectTold(const Content& now, const Target& target, const std::set<std::string>& log);

    std::vector<std::string> m_arguments{"update", "--on-unconvertible", "continue"};
    std::map<std::string, Target> m_targets; ///< by their files, as the data names them
};

void KilledRun::SetUp() {
    const std::vector<Site> all = demo.sites();
    ASSERT_EQ(all.size(), static_cast<std::size_t>(sites));
    const bool one = GetParam() < sites;
    m_arguments.insert(m_arguments.end(), one ? "--site" : "--all");
    if (one)
        m_arguments.push_back(all.at(static_cast<std::size_t>(GetParam())).name);
    std::set<std::string> others;
    for (const Site& site : all) {
        if (one && site.name != m_arguments.back())
            others.insert(site.location);
    }
    for (const auto& [file, database] : demo.targets()) {
        if (!others.contains(file.substr(0, file.rfind('\\'))))
            m_targets[file].database = database;
    }
    fs::create_directory(workshop());
    rememberContents(&Target::before);
}

void KilledRun::rememberContents(Content Target::*when) {
    for (auto& [file, target] : m_targets)
        target.*when = contentOf(file);
}

void KilledRun::enterCopy() {
    fs::current_path(demo.path());
    fs::remove_all(workshop());
    fs::create_directory(workshop());
    for (const fs::directory_entry& entry : fs::directory_iterator(demo.path())) {
        if (entry.path() != workshop())
            fs::copy(entry.path(), workshop() / entry.path().filename(),
                     fs::copy_options::recursive | fs::copy_options::copy_symlinks);
    }
    fs::current_path(workshop());
}

bool KilledRun::killAfter(Clock::duration moment) const {
    const auto until = Clock::now() + moment;
    Program run(TOL_CTL_PROGRAM, m_arguments, fs::current_path());
    std::this_thread::sleep_until(until);
    return run.kill() < 0;
}

Clock::duration KilledRun::runTime() {
    Clock::duration shortest = Clock::duration::max();
    for (int i = 0; i < 2; ++i) {
        enterCopy();
        const auto start = Clock::now();
        EXPECT_EQ(update(), 0);
        shortest = std::min(shortest, Clock::now() - start);
    }
    rememberContents(&Target::after);
    return shortest;
}

// What a killed run left half done has to be put right for those as well who only look.
void KilledRun::expectReadable() const {
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(fs::current_path())) {
        if (!isDatabase(entry.path()))
            continue;
        data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
        EXPECT_NO_THROW(workspace.OpenDatabase(entry.path(), false, true)) << entry.path();
    }
}

void KilledRun::expectSoundFiles() const {
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(fs::current_path())) {
        if (!isDatabase(entry.path()))
            continue;
        EXPECT_NO_THROW(definitionsOf(entry.path())) << entry.path();
        EXPECT_EQ(damageIn(entry.path()), "") << entry.path();
    }
}

void KilledRun::expectWholeFields() const {
    std::set<std::string> log;
    forEachRow("ZOVDEF.MDB", "ACTIVITYLOG", [&](const data::Recordset& row) {
        log.insert(
            fmt::format("{} {}.{}", text(row, "DBNAME"), text(row, "TABLENAME"), text(row, "FIELDNAME")));
    });
    for (const auto& [file, target] : m_targets) {
        const Content now = contentOf(file);
        expectWhole(file, now, target);
        expectTold(now, target, log);
    }
}

void KilledRun::expectWhole(const std::string& place, const Content& now, const Target& target) {
    forEachField(now, [&](const std::string& table, const data::FieldDef& field) {
        const std::string name = table + "." + runtime::upperCase(field.name);
        const bool isOld = sameKind(find(target.before, table, field.name), field);
        const bool isNew = sameKind(find(target.after, table, field.name), field);
        EXPECT_TRUE(isOld || isNew || field.name == "TEMPFIELD") << place << " " << name;
        if (isOld || isNew) {
            EXPECT_EQ(now.values.at(name), (isOld ? target.before : target.after).values.at(name))
                << place << " " << name;
        }
    });
}

void KilledRun::expectTold(const Content& now, const Target& target, const std::set<std::string>& log) {
    const auto isTold = [&](const std::string& table, const std::string& field) {
        return log.contains(fmt::format("{} {}.{}", target.database, table, field));
    };
    forEachField(target.before, [&](const std::string& table, const data::FieldDef& field) {
        const bool tableStands = now.definitions.contains(table);
        const bool isKept = tableStands && sameKind(find(now, table, field.name), field);
        EXPECT_TRUE(isKept || isTold(table, tableStands ? runtime::upperCase(field.name) : ""))
            << target.database << " " << table << "." << field.name;
    });
}

void KilledRun::expectValuesOfAWholeRun() const {
    for (const auto& [file, target] : m_targets) {
        const Content now = contentOf(file);
        EXPECT_THAT(differences(now.definitions, target.after.definitions), testing::IsEmpty()) << file;
        forEachField(
            now, [&, &place = file, &wanted = target](const std::string& table, const data::FieldDef& field) {
                const std::string name = table + "." + runtime::upperCase(field.name);
                EXPECT_EQ(now.values.at(name), wanted.after.values.at(name)) << place << " " << name;
            });
    }
}

// The reference copies, and what belongs to other Job Sites.
void KilledRun::expectOthersUntouched() const {
    std::set<fs::path> targets{fs::current_path() / "ZOVDEF.MDB"};
    for (const auto& [file, target] : m_targets)
        targets.insert(fs::canonical(platform::hostPath(file)));
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(fs::current_path())) {
        if (!isDatabase(entry.path()) || targets.contains(fs::canonical(entry.path())))
            continue;
        const fs::path original = demo.path() / fs::relative(entry.path(), fs::current_path());
        EXPECT_TRUE(bytesOf(entry.path()) == bytesOf(original)) << entry.path();
    }
}

bool KilledRun::isWanted() const {
    return std::ranges::all_of(m_targets, [&](const auto& entry) {
        return differences(definitionsOf(entry.first), demo.wanted(entry.second.database)).empty();
    });
}

Clock::duration partOf(Clock::duration time, double part) {
    return std::chrono::duration_cast<Clock::duration>(time * part);
}

std::string trace(int kill, Clock::duration moment, Clock::duration time) {
    using Milliseconds = std::chrono::duration<double, std::milli>;
    return fmt::format("kill {} after {:.2f} ms of {:.0f}", kill, Milliseconds(moment).count(),
                       Milliseconds(time).count());
}

TEST_P(KilledRun, LosesNoValueAndIsRepairedByTwoFurtherRuns) {
    const int kills = killsHere(GetParam());
    Clock::duration time = runTime();
    EXPECT_TRUE(isWanted());

    std::mt19937 chance(seed + static_cast<unsigned>(GetParam()));
    for (int i = 0; i < kills && !HasFailure(); ++i) {
        const double place = (i + std::uniform_real_distribution<>()(chance)) / kills;
        enterCopy();
        // A machine with much else to do runs now slower, now faster: a run that ended before its moment
        // was not killed.
        while (!killAfter(partOf(time, place))) {
            time = partOf(time, 0.8);
            enterCopy();
        }
        SCOPED_TRACE(trace(i, partOf(time, place), time));
        expectReadable();
        expectSoundFiles();
        expectWholeFields();
        // An interrupted conversion leaves its temporary field, over which the next run stumbles once before
        // it removes it: that is an error box, and status 3.
        for (int run = 0; run < 2 && !isWanted(); ++run)
            EXPECT_THAT(update(), testing::AnyOf(0, 3));
        EXPECT_TRUE(isWanted());
        expectSoundFiles();
        expectValuesOfAWholeRun();
        expectOthersUntouched();
        time = partOf(time, 1.01);
    }
}

INSTANTIATE_TEST_SUITE_P(JobSites, KilledRun, testing::Range(0, sites + 1));

} // namespace
} // namespace tol::test
