// SPDX-License-Identifier: MIT
#include "data/TableCore.h"

#include "data/DatabaseCore.h"
#include "data/engine/Definition.h"
#include "data/engine/Names.h"
#include "runtime/RuntimeError.h"

#include <utility>

namespace tol::data {

TableCore::TableCore(std::string name, bool asFound) : m_name(std::move(name)), m_asFound(asFound) {
    m_draft.name = m_name;
}

TableCore::TableCore(std::shared_ptr<DatabaseCore> database, std::string name)
    : m_database(std::move(database)), m_name(std::move(name)) {}

const TableDefinition& TableCore::definition() const {
    if (!isAppended())
        return m_draft;
    if (auto catalogue = m_database->store().catalogue(); catalogue != m_seen) {
        m_snapshot = catalogue->find(m_name);
        m_seen = std::move(catalogue);
    }
    if (!m_snapshot)
        runtime::raise(runtime::errObjectInvalid);
    return *m_snapshot;
}

const FieldDef& TableCore::field(std::string_view name, std::size_t position) const {
    const auto& fields = definition().fields;
    if (position < fields.size() && fields[position].name == name)
        return fields[position];
    return fields[requirePosition(definition().findField(name), fields.size())];
}

void TableCore::appendTo(const std::shared_ptr<DatabaseCore>& database) {
    if (isAppended())
        runtime::raise(runtime::errObjectExists, {m_name});
    database->alter(m_name, CreateTable{m_draft});
    m_database = database;
    database->addTable(shared_from_this());
}

void TableCore::alter(const TableChange& change) {
    if (isAppended())
        m_database->alter(definition().name, change);
    else
        apply(m_draft, change, m_asFound);
    if (const auto* rename = std::get_if<RenameTable>(&change))
        m_name = rename->newName;
}

} // namespace tol::data
