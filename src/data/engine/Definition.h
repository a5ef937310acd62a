// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tol::data {

/// Field types with the numbers under which definitions store them.
enum FieldType : int {
    dbBoolean = 1,
    dbByte = 2,
    dbInteger = 3,
    dbLong = 4,
    dbCurrency = 5,
    dbSingle = 6,
    dbDouble = 7,
    dbDate = 8,
    dbText = 10,
    dbLongBinary = 11,
    dbMemo = 12,
    dbGUID = 15,
};

/// Most fields that a table may have, and most characters of a dbText field.
inline constexpr int maxFields = 255;
inline constexpr int maxTextSize = 255;

bool isFieldType(int type);

/// A position in a collection of `count` items, raising 3265 for one that is outside. A look-up by name
/// that found nothing gives -1, which is outside too.
std::size_t requirePosition(int position, std::size_t count);

/// The size that a field of this type reports: Boolean and Byte 1, Integer 2, Long and Single 4,
/// Currency, Double and Date 8, GUID 16, text its declared characters, binary and memo 0.
int reportedSize(FieldType type, int declaredSize);

struct FieldDef {
    std::string name;
    FieldType type = dbText;
    int size = 0;     ///< characters of a dbText field, otherwise reportedSize()
    int ordinal = -1; ///< position; -1 in a new definition: behind the last field
    bool allowZeroLength = false;
    bool required = false;

    bool operator==(const FieldDef&) const = default;
};

struct IndexDef {
    std::string name;
    std::vector<std::string> fields{}; ///< in key order, all ascending
    bool unique = false;
    bool primary = false; ///< implies unique and no Null
    bool foreign = false; ///< of another maker, by whose rules keys may differ that are one key here

    bool operator==(const IndexDef&) const = default;
};

struct TableDefinition {
    std::string name;
    std::vector<FieldDef> fields{}; ///< by ordinal, then in the order in which they were made
    std::vector<IndexDef> indexes{};
    bool withoutRowKeys = false; ///< another maker's, whose rows have no key of 64 bits: they can't be opened

    /// Position of the field or index of that name (case does not matter), -1 when there is none.
    [[nodiscard]] int findField(std::string_view fieldName) const;
    [[nodiscard]] int findIndex(std::string_view indexName) const;
    bool operator==(const TableDefinition&) const = default;
};

/// The tables of a file in the order of their names, as they are at one time. A change makes another
/// catalogue: whoever keeps one sees by its identity whether anything has changed since.
class Catalogue {
  public:
    using Tables = std::vector<std::shared_ptr<const TableDefinition>>;

    explicit Catalogue(Tables tables) : m_tables(std::move(tables)) {}
    [[nodiscard]] const Tables& tables() const { return m_tables; }
    /// Null when there is no such table.
    [[nodiscard]] std::shared_ptr<const TableDefinition> find(std::string_view table) const;

  private:
    Tables m_tables;
};

} // namespace tol::data
