// SPDX-License-Identifier: MIT
#pragma once

#include "data/engine/Definition.h"
#include "runtime/Value.h"

#include <memory>
#include <string>

namespace tol::data {

class RecordsetCore; // state behind Recordset, private to the layer
class TableCore;     // state behind TableDef, private to the layer

/// A field of a recordset, of a table's definition, or of a definition still under construction.
/// A light handle; using it after its recordset or database was closed raises 3420. A field made by
/// CreateField stands for the table's own field once it has been appended.
class Field {
  public:
    Field(std::shared_ptr<RecordsetCore> recordset, std::size_t position);
    Field(std::shared_ptr<TableCore> table, std::size_t position);
    /// A field on its own, as CreateField gives it.
    explicit Field(FieldDef definition);

    [[nodiscard]] std::string Name() const;
    /// Renames the field; one of a recordset can't be renamed (3219).
    void Name(const std::string& name);
    [[nodiscard]] FieldType Type() const;
    [[nodiscard]] int Size() const;
    [[nodiscard]] int OrdinalPosition() const;
    void OrdinalPosition(int position);
    [[nodiscard]] bool AllowZeroLength() const;
    void AllowZeroLength(bool allow);

    /// Only in a recordset (else 3219): the copy buffer's value while a record is added or edited, else
    /// the current record's. 3021 with no current record.
    [[nodiscard]] runtime::Value Value() const;
    /// Only between AddNew or Edit and Update (else 3020): converts to the field's type (6 beyond its
    /// range, 3421 for what can't be converted), refuses a text longer than the field (3163) and ""
    /// where that is not allowed (3315).
    void Value(const runtime::Value& value);

    /// All of it, as it stands now.
    [[nodiscard]] FieldDef definition() const;

  private:
    friend class TableDef;
    /// A field made on its own, shared by the copies of its handle.
    struct Detached {
        FieldDef definition;
        std::shared_ptr<TableCore> appendedTo;
    };

    /// The table to which it belongs, null for none.
    [[nodiscard]] const std::shared_ptr<TableCore>& table() const;
    [[nodiscard]] const std::string& ownName() const;
    [[nodiscard]] const FieldDef& current() const;
    /// Tells the handles of a detached field that it is now the table's.
    void appendedTo(const std::shared_ptr<TableCore>& table) const;

    std::shared_ptr<RecordsetCore> m_recordset;
    std::shared_ptr<TableCore> m_table;
    std::shared_ptr<Detached> m_detached;
    std::size_t m_position = 0;
    std::string m_name; ///< in m_table
};

} // namespace tol::data
