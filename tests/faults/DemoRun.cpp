// SPDX-License-Identifier: MIT
#include "DemoRun.h"

#include "platform/Paths.h"
#include "runtime/Text.h"
#include "support/FileBytes.h"
#include "support/Program.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <algorithm>

namespace tol::test {

namespace fs = std::filesystem;

namespace {

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

} // namespace

void DemoRun::SetUp() {
    const std::vector<Site> all = demo.sites();
    ASSERT_EQ(all.size(), static_cast<std::size_t>(demoSites));
    const bool one = GetParam() < demoSites;
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

void DemoRun::rememberContents(Content Target::*when) {
    for (auto& [file, target] : m_targets)
        target.*when = contentOf(file);
}

void DemoRun::rememberWholeRun() {
    rememberContents(&Target::after);
    for (const auto& [file, target] : m_targets)
        EXPECT_THAT(differences(target.after.definitions, demo.wanted(target.database)), testing::IsEmpty())
            << file;
}

void DemoRun::enterCopy() {
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

int DemoRun::update() const {
    return Program(TOL_CTL_PROGRAM, m_arguments, fs::current_path()).wait();
}

std::vector<fs::path> DemoRun::databases() {
    std::vector<fs::path> files;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(fs::current_path())) {
        if (runtime::upperCase(entry.path().extension().native()) == ".MDB")
            files.push_back(entry.path());
    }
    return files;
}

std::set<fs::path> DemoRun::filesOfRun() const {
    std::set<fs::path> files{fs::canonical("ZOVDEF.MDB")};
    for (const auto& [file, target] : m_targets)
        files.insert(fs::canonical(platform::hostPath(file)));
    return files;
}

void DemoRun::expectSoundFiles() const {
    for (const fs::path& file : filesOfRun()) {
        EXPECT_NO_THROW(definitionsOf(file)) << file;
        EXPECT_EQ(damageIn(file), "") << file;
    }
}

void DemoRun::expectWholeFields() const {
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

void DemoRun::expectWhole(const std::string& place, const Content& now, const Target& target) {
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

void DemoRun::expectTold(const Content& now, const Target& target, const std::set<std::string>& log) {
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

void DemoRun::expectValuesOfAWholeRun() const {
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
void DemoRun::expectOthersUntouched() const {
    const std::set<fs::path> changing = filesOfRun();
    for (const fs::path& file : databases()) {
        const fs::path original = demo.path() / fs::relative(file, fs::current_path());
        EXPECT_TRUE(changing.contains(fs::canonical(file)) || bytesOf(file) == bytesOf(original)) << file;
    }
}

bool DemoRun::isComplete() const {
    return std::ranges::all_of(m_targets, [](const auto& entry) {
        return differences(definitionsOf(entry.first), entry.second.after.definitions).empty();
    });
}

} // namespace tol::test
