// SPDX-License-Identifier: MIT
#pragma once

#include "data/Definition.h"
#include "runtime/Value.h"

#include <memory>
#include <string>

namespace tol::data {

class RecordsetCore; // state behind Recordset, private to the floor
class TableCore;     // state behind TableDef, private to the floor

/// A field of a recordset, of a table's definition, or of a definition still under construction.
/// A light handle; using it after its recordset was closed raises 3420.
class Field {
  public:
    Field(std::shared_ptr<RecordsetCore> recordset, std::size_t position);
    Field(std::shared_ptr<TableCore> table, std::string name);
    /// A field on its own, as CreateField gives it.
    explicit Field(FieldDef definition);

    [[nodiscard]] std::string Name() const;
    [[nodiscard]] FieldType Type() const;
    [[nodiscard]] int Size() const;
    [[nodiscard]] int OrdinalPosition() const;
    void OrdinalPosition(int position);
    [[nodiscard]] bool AllowZeroLength() const;
    void AllowZeroLength(bool allow);

    /// Only in a recordset: the copy buffer's value while a record is added or edited, else the current
    /// record's. 3021 with no current record.
    [[nodiscard]] runtime::Value Value() const;
    /// Only between AddNew or Edit and Update (else 3020): converts to the field's type (6, 13, 3421),
    /// refuses a text longer than the field (3163) and "" where that is not allowed (3315).
    void Value(const runtime::Value& value);

    [[nodiscard]] FieldDef definition() const;

  private:
    std::shared_ptr<RecordsetCore> m_recordset;
    std::shared_ptr<TableCore> m_table;
    std::shared_ptr<FieldDef> m_own;
    std::size_t m_position = 0;
    std::string m_name;
};

} // namespace tol::data
