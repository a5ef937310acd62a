// SPDX-License-Identifier: MIT
#include "data/TableDef.h"

#include "data/DatabaseCore.h"
#include "data/TableCore.h"
#include "data/engine/Definition.h"
#include "runtime/RuntimeError.h"

namespace tol::data {

const std::string& Index::FieldList::operator()(int position) const {
    return m_names[requirePosition(position, m_names.size())];
}

Field Index::CreateField(const std::string& name) const {
    FieldDef definition;
    definition.name = name;
    return Field(definition);
}

std::string TableDef::Name() const {
    return m_core->definition().name;
}

void TableDef::Name(const std::string& name) {
    m_core->alter(RenameTable{name});
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
    m_core->alter(AddField{field.definition()});
    field.appendedTo(m_core);
}

void TableDef::FieldList::Delete(std::string_view name) {
    m_core->alter(DropField{std::string(name)});
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
    m_core->alter(AddIndex{index.definition()});
}

void TableDef::IndexList::Delete(std::string_view name) {
    m_core->alter(DropIndex{std::string(name)});
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

int TableDefs::Count() const {
    return static_cast<int>(m_core->store().catalogue()->tables().size());
}

TableDef TableDefs::operator()(std::string_view name) const {
    auto table = m_core->table(name);
    if (!table)
        runtime::raise(runtime::errItemNotFound);
    return TableDef(std::move(table));
}

TableDef TableDefs::operator()(int position) const {
    const auto catalogue = m_core->store().catalogue();
    return (*this)(catalogue->tables()[requirePosition(position, catalogue->tables().size())]->name);
}

void TableDefs::Append(TableDef& table) {
    table.m_core->appendTo(m_core);
}

void TableDefs::Delete(std::string_view name) {
    (*this)(name).m_core->alter(DropTable{});
}

} // namespace tol::data
