// SPDX-License-Identifier: MIT
#pragma once

#include "support/Environment.h"
#include "support/Program.h"
#include "support/TempFolder.h"

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace tol::test {

using Json = nlohmann::json;

/// What a run of tolctl left.
struct Outcome {
    int status = -1;
    std::string out, err;

    [[nodiscard]] Json json() const { return Json::parse(out); }
};

/// A working folder for tolctl with small databases, each made by `tolctl load`. It is the current folder,
/// and drive C is in it.
class CaseFolder {
  public:
    /// Runs tolctl here. `input` is its standard input.
    [[nodiscard]] Outcome run(const std::vector<std::string>& words, const std::string& input = "") const;

    void load(const std::string& file, const Json& database) const;
    [[nodiscard]] Json dump(const std::string& file) const;
    /// The rows of one table.
    [[nodiscard]] Json rows(const std::string& file, const std::string& table) const;

    /// A Job Site in the list; its folder is made.
    void addSite(const std::string& name, const std::string& pathText);
    /// A row of DBPATHS: DBTAG, PATHNAME, PathText.
    void addSiteRow(const Json& row) { m_sites.push_back(row); }
    /// A row of DATABASES with path code DBPATHS, for module N.
    void addDatabase(const std::string& name);
    /// A row of DATABASES: DBNAME, PATHCODE, Modules, Optional, FILLLOC, ALTDBNAME, DBDESC.
    void addDatabaseRow(const Json& row) { m_databases.push_back(row); }
    /// A wanted field.
    void want(const std::string& database, const std::string& table, const std::string& field, int type,
              int size);
    /// Makes DBPATHS.MDB and ZOVDEF.MDB of what was added.
    void finish() const;

    TempFolder folder;

  private:
    Environment m_drives{"TOL_DRIVES", nullptr};
    Json m_sites = Json::array();
    Json m_databases = Json::array();
    Json m_wanted = Json::array();
};

/// A table in the form of `tolctl load`: fields as [name, type, size].
Json tableOf(const std::string& name, const Json& fields, const Json& rows);
/// A database of tables.
Json databaseOf(std::initializer_list<Json> tables);

/// For Program's `prepare`: takes from root what other users lack, the right to write anything.
void withoutRightsOfRoot();

} // namespace tol::test
