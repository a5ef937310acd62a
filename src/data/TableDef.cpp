// SPDX-License-Identifier: MIT
#include "data/TableDef.h"

#include "data/Positions.h"
#include "data/TableCore.h"
#include "runtime/RuntimeError.h"

namespace tol::data {

std::string TableDef::Name() const {
    return m_core->definition().name;
}

void TableDef::Name(const std::string& name) {
    m_core->rename(name);
}

int TableDef::FieldList::Count() const {
    return static_cast<int>(m_core->definition().fields.size());
}

Field TableDef::FieldList::operator()(std::string_view name) const {
    return (*this)(m_core->definition().findField(name));
}

Field TableDef::FieldList::operator()(int position) const {
    return {m_core, requirePosition(position, m_core->definition().fields.size())};
}

void TableDef::FieldList::Append(const Field& field) {
    if (field.table() != nullptr)
        runtime::raise(runtime::errObjectExists, {field.ownName()});
    m_core->addField(field.definition());
    field.appendedTo(m_core);
}

void TableDef::FieldList::Delete(std::string_view name) {
    m_core->dropField(name);
}

int TableDef::IndexList::Count() const {
    return static_cast<int>(m_core->definition().indexes.size());
}

Index TableDef::IndexList::operator()(std::string_view name) const {
    return (*this)(m_core->definition().findIndex(name));
}

Index TableDef::IndexList::operator()(int position) const {
    const auto& indexes = m_core->definition().indexes;
    return Index(indexes[requirePosition(position, indexes.size())]);
}

void TableDef::IndexList::Append(const Index& index) {
    m_core->addIndex(index.definition());
}

void TableDef::IndexList::Delete(std::string_view name) {
    m_core->dropIndex(name);
}

Field TableDef::CreateField(const std::string& name, int type, int size) const {
    FieldDef definition;
    definition.name = name;
    definition.type = static_cast<FieldType>(type);
    definition.size = reportedSize(definition.type, size);
    return Field(definition);
}

Index TableDef::CreateIndex(const std::string& name) const {
    IndexDef definition;
    definition.name = name;
    return Index(definition);
}

TableDefinition TableDef::definition() const {
    return m_core->definition();
}

} // namespace tol::data
