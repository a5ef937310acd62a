// SPDX-License-Identifier: MIT
#pragma once

#include "data/engine/Definition.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tol::demo {

/// How the values of a field are made: a kind and its arguments. Without a kind the field's type says.
struct Content {
    std::string kind;
    std::vector<std::string> arguments;
    bool mayBeNull = false;
};

struct FieldRecipe {
    data::FieldDef definition;
    Content content;
};

struct TableRecipe {
    std::string database;
    std::string name;
    int rows = 0;
    bool grows = true; ///< with the size of the Job Site
    std::vector<FieldRecipe> fields;
    std::vector<data::IndexDef> indexes;

    /// Null when there is none. Names are exact: the texts spell a thing the same way everywhere.
    [[nodiscard]] const FieldRecipe* findField(std::string_view fieldName) const;
    [[nodiscard]] data::TableDefinition definition() const;
};

/// The databases of the suite as one release had them, with what rows of them look like. Databases
/// and tables stand in the order of their names.
class Suite {
  public:
    using Tables = std::map<std::string, TableRecipe, std::less<>>;

    [[nodiscard]] const std::map<std::string, Tables, std::less<>>& databases() const { return m_databases; }
    /// The tables of a database that must exist; and one table, null when there is none.
    [[nodiscard]] const Tables& database(std::string_view name) const;
    [[nodiscard]] const TableRecipe* findTable(std::string_view database, std::string_view table) const;
    /// "DATABASE.TABLE.FIELD" or "DATABASE.TABLE"; std::logic_error when there is no such thing.
    [[nodiscard]] const TableRecipe& table(std::string_view qualified) const;

  private:
    friend class SuiteReader;
    std::map<std::string, Tables, std::less<>> m_databases;
};

} // namespace tol::demo
