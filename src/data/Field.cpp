// SPDX-License-Identifier: MIT
#include "data/Field.h"

#include "data/RecordsetCore.h"
#include "data/TableCore.h"
#include "runtime/RuntimeError.h"

#include <algorithm>
#include <utility>

namespace tol::data {

Field::Field(std::shared_ptr<RecordsetCore> recordset, std::size_t position)
    : m_recordset(std::move(recordset)), m_position(position) {}

Field::Field(std::shared_ptr<TableCore> table, std::size_t position)
    : m_table(std::move(table)), m_position(position), m_name(m_table->definition().fields[position].name) {}

Field::Field(FieldDef definition) : m_detached(std::make_shared<Detached>()) {
    m_detached->definition = std::move(definition);
}

std::string Field::Name() const {
    return current().name;
}

void Field::Name(const std::string& name) {
    if (m_recordset)
        runtime::raise(runtime::errInvalidOperation);
    if (table())
        table()->alter(RenameField{ownName(), name});
    (m_detached ? m_detached->definition.name : m_name) = name;
}

FieldType Field::Type() const {
    return current().type;
}

int Field::Size() const {
    return current().size;
}

int Field::OrdinalPosition() const {
    const int ordinal = m_recordset ? m_recordset->currentDefinition(m_position).ordinal : current().ordinal;
    return std::max(0, ordinal);
}

void Field::OrdinalPosition(int position) {
    if (m_recordset)
        m_recordset->alter(SetOrdinal{current().name, position});
    else if (table())
        table()->alter(SetOrdinal{ownName(), position});
    else
        m_detached->definition.ordinal = position;
}

bool Field::AllowZeroLength() const {
    return m_recordset ? m_recordset->currentDefinition(m_position).allowZeroLength
                       : current().allowZeroLength;
}

void Field::AllowZeroLength(bool allow) {
    if (m_recordset)
        m_recordset->alter(SetAllowZeroLength{current().name, allow});
    else if (table())
        table()->alter(SetAllowZeroLength{ownName(), allow});
    else
        m_detached->definition.allowZeroLength = allow;
}

runtime::Value Field::Value() const {
    if (!m_recordset)
        runtime::raise(runtime::errInvalidOperation);
    return m_recordset->value(m_position);
}

void Field::Value(const runtime::Value& value) {
    if (!m_recordset)
        runtime::raise(runtime::errInvalidOperation);
    m_recordset->setValue(m_position, value);
}

FieldDef Field::definition() const {
    return m_recordset ? m_recordset->currentDefinition(m_position) : current();
}

const std::shared_ptr<TableCore>& Field::table() const {
    return m_detached ? m_detached->appendedTo : m_table;
}

const std::string& Field::ownName() const {
    return m_detached ? m_detached->definition.name : m_name;
}

const FieldDef& Field::current() const {
    if (m_recordset)
        return m_recordset->field(m_position);
    if (m_detached && !m_detached->appendedTo)
        return m_detached->definition;
    return table()->field(ownName(), m_position);
}

void Field::appendedTo(const std::shared_ptr<TableCore>& table) const {
    if (m_detached)
        m_detached->appendedTo = table;
}

} // namespace tol::data
