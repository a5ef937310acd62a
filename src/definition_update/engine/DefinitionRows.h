// SPDX-License-Identifier: MIT
#pragma once

#include "data/DBEngine.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tol::update {

/// Key fields that an index row names one by one; further ones stand in KEYSTRING alone.
inline constexpr std::size_t namedKeys = 10;

/// The columns of NEWDEF or OLDDEF at hand, for one recordset as long as that is open.
class FieldRows {
  public:
    explicit FieldRows(data::Recordset& rows);

    /// Adds a row. `database` belongs to NEWDEF alone.
    void add(const std::optional<std::string>& database, const std::string& table,
             const data::FieldDef& field);
    /// Adds the single row that stands for a table without fields.
    void addFieldless(const std::string& table);

    data::Recordset& rows;
    data::Field TNAME, FNAME, FSIZE, FTYPE, OPOS;
    [[nodiscard]] data::Field DBNAME() const { return rows.Fields("DBNAME"); }

  private:
    void store(const std::optional<std::string>& database, const std::string& table, const std::string& field,
               const std::array<std::int32_t, 3>& sizeTypePosition);
};

/// The columns of NEWINDEXES or OLDINDEXES at hand, for one recordset as long as that is open.
class IndexRows {
  public:
    explicit IndexRows(data::Recordset& rows);

    void add(const std::optional<std::string>& database, const std::string& table, const std::string& index,
             const std::vector<std::string>& keys);

    data::Recordset& rows;
    data::Field TNAME, IName, KEYSTRING;
    std::vector<data::Field> IKEY; ///< IKEY01 to IKEY10
    [[nodiscard]] data::Field DBNAME() const { return rows.Fields("DBNAME"); }
};

/// The field's value through vdNullCheck, trimmed; and folded to upper case as well.
std::string trimmedText(const data::Field& field);
std::string foldedText(const data::Field& field);

/// Whether the table is the engine's own, by the first four letters of its trimmed name.
bool isSystemTable(std::string_view trimmedName);

/// Calls `visit` with each table of the database in position order, and its trimmed name. The engine's own
/// tables are passed over.
void eachTable(const data::Database& database,
               const std::function<void(data::TableDef& table, const std::string& name)>& visit);

/// Who wants to see how far a capture of indexes has come.
struct IndexProgress {
    std::function<void(const std::string&)> table, index, field;
};

/// Adds a row for each index of the database.
void captureIndexes(const data::Database& database, IndexRows& rows, const std::optional<std::string>& name,
                    const IndexProgress& progress = {});

} // namespace tol::update
