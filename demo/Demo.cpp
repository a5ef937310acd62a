// SPDX-License-Identifier: MIT
#include "demo/Demo.h"

#include "demo/DemoDatabase.h"
#include "demo/Lines.h"
#include "demo/Network.h"
#include "demo/SuiteReader.h"
#include "demo/Workshop.h"
#include "platform/Paths.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

#include <fmt/format.h>

#include <algorithm>

namespace tol::demo {

namespace fs = std::filesystem;

namespace {

/// Databases that are one for the network or the machine moved on last when release 3 came.
constexpr int sharedRelease = 3;
constexpr int wantedRelease = 4;

// Where things lie in the data, and where that is in the folder: C is the user's own disk, S what a
// server shares.
constexpr std::string_view serverDrive = "S:";
constexpr std::string_view userFolder = "drives/c/ZOVUSER";
constexpr std::string_view netFolder = "NET";
constexpr std::string_view invoiceFolder = "WENDRY";
constexpr std::string_view sitesFolder = "SITES";

struct DatabaseRow {
    std::string name, pathCode, modules;
    bool optional = false;
    std::string fillLocation, alternateName, description;
};

struct JobSite {
    std::string name, folder;
    int release = wantedRelease;
    int percent = 100;
    std::vector<std::string> without;
};

std::vector<DatabaseRow> readDatabases() {
    std::vector<DatabaseRow> rows;
    for (Lines lines(texts::databases); lines.next();) {
        const std::vector<std::string> line = parts(lines.line(), '|');
        rows.push_back({line.at(0), line.at(1), line.at(2), line.at(3) == "optional", line.at(4), line.at(5),
                        line.at(6)});
    }
    return rows;
}

std::vector<JobSite> readSites() {
    std::vector<JobSite> sites;
    for (Lines lines(texts::sites); lines.next();) {
        const std::vector<std::string> line = parts(lines.line(), '|');
        sites.push_back(
            {line.at(0), line.at(1), std::stoi(line.at(2)), std::stoi(line.at(3)), parts(line.at(4), ',')});
    }
    return sites;
}

std::string serverPath(std::string_view folder, std::string_view below = {}) {
    const std::string path = platform::join(serverDrive, folder);
    return below.empty() ? path : platform::join(path, below);
}

/// Makes all databases below one folder.
class Maker {
  public:
    explicit Maker(fs::path folder) : m_folder(std::move(folder)) {}

    void make() {
        makeJobSites();
        makeShared();
        makeReferences();
        makePaths();
        makeDefinitions();
    }

  private:
    fs::path onServer(std::string_view folder) const { return m_folder / "drives" / "s" / folder; }
    fs::path folderOf(const DatabaseRow& row) const;
    fs::path referenceOf(const DatabaseRow& row) const;
    void makeFilled(const fs::path& file, const Suite::Tables& tables, const Values& values) const;
    void makeJobSites() const;
    void makeShared() const;
    void makeReferences() const;
    void makePaths() const;
    void makeDefinitions() const;
    void addWantedDefinition(DemoDatabase& database, const DatabaseRow& row) const;

    fs::path m_folder;
    Suite m_wanted = wantedSuite();
    Suite m_own = programsOwn();
    WordLists m_lists = readLists();
    Network m_network;
    std::vector<DatabaseRow> m_databases = readDatabases();
    std::vector<JobSite> m_sites = readSites();
};

void Maker::makeFilled(const fs::path& file, const Suite::Tables& tables, const Values& values) const {
    fs::create_directories(file.parent_path());
    DemoDatabase database(file, tables);
    database.fill(values);
    database.finish();
}

void Maker::makeJobSites() const {
    for (const JobSite& site : m_sites) {
        const Suite suite = suiteOf(site.release, site.name);
        const Values values(m_wanted, m_lists, site.name, site.percent);
        for (const DatabaseRow& row : m_databases) {
            if (row.pathCode != "DBPATHS" || std::ranges::find(site.without, row.name) != site.without.end())
                continue;
            makeFilled(onServer(sitesFolder) / site.folder / (row.name + ".MDB"), suite.database(row.name),
                       values);
        }
    }
}

fs::path Maker::folderOf(const DatabaseRow& row) const {
    if (row.pathCode == "NETPATH")
        return onServer(netFolder);
    if (row.pathCode == "WNDPATH")
        return onServer(invoiceFolder);
    return row.pathCode == "DEFAULT" ? m_folder : m_folder / userFolder;
}

void Maker::makeShared() const {
    const Suite suite = suiteOf(sharedRelease);
    const Values values(m_wanted, m_lists, "shared", 100);
    for (const DatabaseRow& row : m_databases) {
        if (row.pathCode == "DBPATHS")
            continue;
        const fs::path file = folderOf(row) / (row.name + ".MDB");
        fs::create_directories(file.parent_path());
        DemoDatabase database(file, suite.database(row.name));
        database.fill(values);
        if (row.pathCode == "NETPATH")
            m_network.addAll(database);
        database.finish();
    }
    // Site information is edited in the copy that lies beside the network database, and counters
    // without a folder of their own are in the program's.
    for (const fs::path& folder : {m_folder, onServer(netFolder)})
        makeFilled(folder / "MAIN.MDB", m_wanted.database("MAIN"), values);
}

fs::path Maker::referenceOf(const DatabaseRow& row) const {
    std::string below = row.fillLocation.substr(serverDrive.size() + 1);
    std::ranges::replace(below, '\\', '/');
    return onServer(below) / ((row.alternateName.empty() ? row.name : row.alternateName) + ".MDB");
}

void Maker::makeReferences() const {
    for (const DatabaseRow& row : m_databases) {
        const fs::path file = referenceOf(row);
        fs::create_directories(file.parent_path());
        DemoDatabase(file, m_wanted.database(row.name)).finish();
    }
}

void Maker::makePaths() const {
    DemoDatabase net(m_folder / "NETPATH.MDB", m_own.database("NETPATH"));
    net.add("NETPATH", {{"Path", serverPath(netFolder)}});
    net.finish();
    DemoDatabase invoices(m_folder / "WNDPATH.mdb", m_own.database("WNDPATH"));
    invoices.add("WNDPATH", {{"Path", serverPath(invoiceFolder)}});
    invoices.finish();

    DemoDatabase paths(m_folder / "DBPATHS.MDB", m_own.database("DBPATHS"));
    std::int32_t tag = 0;
    for (const JobSite& site : m_sites)
        paths.add(
            "DBPATHS",
            {{"DBTAG", ++tag}, {"PATHNAME", site.name}, {"PathText", serverPath(sitesFolder, site.folder)}});
    paths.add("DBTAGS", {{"DBTAG", tag + 1}});
    paths.finish();
}

void Maker::makeDefinitions() const {
    DemoDatabase database(m_folder / "ZOVDEF.MDB", m_own.database("ZOVDEF"));
    for (const DatabaseRow& row : m_databases) {
        database.add("DATABASES", {{"DBNAME", row.name},
                                   {"PATHCODE", row.pathCode},
                                   {"Modules", row.modules},
                                   {"Optional", row.optional},
                                   {"FILLLOC", row.fillLocation},
                                   {"ALTDBNAME", row.alternateName},
                                   {"DBDESC", row.description}});
        addWantedDefinition(database, row);
    }
    m_network.addLists(database);
    database.finish();
    // A refresh empties the two lists in the file of this name beside the network database.
    fs::create_symlink("../../../ZOVDEF.MDB", onServer(netFolder) / "ZOVDEF.MDB");
}

void Maker::addWantedDefinition(DemoDatabase& database, const DatabaseRow& row) const {
    for (const auto& [tableName, table] : m_wanted.database(row.name)) {
        std::int16_t position = 0;
        for (const FieldRecipe& field : table.fields)
            database.add("NEWDEF", {{"DBNAME", row.name},
                                    {"TNAME", runtime::upperCase(tableName)},
                                    {"FNAME", runtime::upperCase(field.definition.name)},
                                    {"FSIZE", static_cast<std::int16_t>(field.definition.size)},
                                    {"FTYPE", static_cast<std::int16_t>(field.definition.type)},
                                    {"OPOS", position++}});
        for (const data::IndexDef& index : table.indexes) {
            const auto key = [&](std::size_t n) {
                return n < index.fields.size() ? index.fields[n] : runtime::space(20);
            };
            database.add("NEWINDEXES", {{"DBNAME", row.name},
                                        {"TNAME", tableName},
                                        {"IName", index.name},
                                        {"KEYSTRING", fmt::format("{}", fmt::join(index.fields, ""))},
                                        {"IKEY01", key(0)},
                                        {"IKEY02", key(1)},
                                        {"IKEY03", key(2)},
                                        {"IKEY04", key(3)},
                                        {"IKEY05", key(4)},
                                        {"IKEY06", key(5)},
                                        {"IKEY07", key(6)},
                                        {"IKEY08", key(7)},
                                        {"IKEY09", key(8)},
                                        {"IKEY10", key(9)}});
        }
    }
}

void removeContent(const fs::path& folder) {
    std::error_code ignored;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, ignored))
        fs::remove_all(entry.path(), ignored);
}

/// Copies what was made to its place, or leaves nothing there.
void deliver(const fs::path& made, const fs::path& folder, bool folderIsNew) {
    std::error_code error;
    fs::create_directories(folder, error);
    if (!error)
        fs::copy(made, folder, fs::copy_options::recursive | fs::copy_options::copy_symlinks, error);
    if (!error)
        return;
    std::error_code ignored;
    removeContent(folder);
    if (folderIsNew)
        fs::remove(folder, ignored);
    throw runtime::RuntimeError(
        error == std::errc::no_space_on_device ? runtime::errDiskFull : runtime::errPathAccess,
        fmt::format("The demo can't be written to '{}'.", folder.string()), error.message());
}

} // namespace

void makeDemo(const fs::path& folder) {
    std::error_code error;
    const bool there = fs::exists(folder, error);
    if (there && (!fs::is_directory(folder) || !fs::is_empty(folder)))
        throw runtime::RuntimeError(
            runtime::errPathAccess,
            fmt::format("The demo needs a folder of its own: '{}' exists and is not an empty folder.",
                        folder.string()));
    const Workshop workshop;
    Maker(workshop.folder()).make();
    deliver(workshop.folder(), folder, !there);
}

} // namespace tol::demo
