// SPDX-License-Identifier: MIT
#pragma once

#include "data/DBEngine.h"
#include "demo/Workshop.h"
#include "support/Environment.h"
#include "support/TempFolder.h"
#include "support/TestHost.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace tol::test {

/// Definitions by table name in upper case.
using Definitions = std::map<std::string, data::TableDefinition>;

struct Site {
    std::string name, location;
};

struct SuiteDatabase {
    std::string name, pathCode;
};

/// Makes sure that databases are kept in SQLite files.
void useSqlite();

/// A demo in a folder of the test's own, which is the current one. TOL_DRIVES is out of force.
class DemoFolder {
  public:
    DemoFolder();

    TestHost host;

    [[nodiscard]] const std::filesystem::path& path() const { return m_folder.path(); }
    [[nodiscard]] std::filesystem::path operator/(std::string_view name) const { return m_folder / name; }
    /// Job Sites and databases as their tables tell, in stored order.
    [[nodiscard]] std::vector<Site> sites() const;
    [[nodiscard]] std::vector<SuiteDatabase> databases() const;
    /// The file of a database, by its path code, for that Job Site.
    [[nodiscard]] std::string fileOf(const SuiteDatabase& database, const Site& site) const;
    [[nodiscard]] std::string net() const { return fileOf({"ZOVNET", "NETPATH"}, {}); }
    /// Every file that a run would touch, with the database's name. Files of no Job Site stand once.
    [[nodiscard]] std::vector<std::pair<std::string, std::string>> targets() const;
    /// What ZOVDEF.MDB wants of a database.
    [[nodiscard]] Definitions wanted(const std::string& database) const;

  private:
    Environment m_drives{"TOL_DRIVES", nullptr};
    TempFolder m_folder{demo::Workshop::place()};
};

/// Calls the function for each row of a table in stored order.
void forEachRow(const std::string& file, const std::string& table,
                const std::function<void(data::Recordset&)>& row);
/// The field's text, trimmed; "" for Null.
std::string text(const data::Recordset& row, std::string_view field);
std::int64_t rowCount(const std::string& file, const std::string& table);
/// The definitions that a file has.
Definitions definitionsOf(const std::string& file);
/// Definitions as lines of text: each table's fields by position with type and size, then its indexes by
/// name with their keys.
std::vector<std::string> describe(const Definitions& tables);
/// The lines that only one of the two has: "- " in front of those of the first, "+ " of the second.
std::vector<std::string> differences(const Definitions& first, const Definitions& second);

} // namespace tol::test
