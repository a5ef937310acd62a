// SPDX-License-Identifier: MIT
#include "data/TableCore.h"

#include "data/DatabaseCore.h"
#include "data/Names.h"
#include "data/Positions.h"
#include "runtime/RuntimeError.h"

#include <algorithm>
#include <utility>

namespace tol::data {
namespace {

/// A new field in the form in which it is stored: sizes are those that it will report.
FieldDef completed(FieldDef field) {
    if (!isFieldType(field.type))
        runtime::raise(runtime::errInvalidFieldType, {field.name});
    if (field.type == dbText) {
        if (field.size < 0 || field.size > maxTextSize)
            runtime::raise(runtime::errInvalidArgument);
        if (field.size == 0)
            field.size = maxTextSize;
    }
    field.size = reportedSize(field.type, field.size);
    return field;
}

void requireValid(const IndexDef& index, const TableDefinition& table, bool asFound) {
    requireNewName(index.name, asFound);
    if (index.fields.empty())
        runtime::raise(runtime::errNoFieldDefined, {index.name});
    if (table.findIndex(index.name) >= 0)
        runtime::raise(runtime::errIndexExists, {index.name});
    for (std::size_t i = 0; i < index.fields.size(); ++i) {
        const std::string& name = index.fields[i];
        if (table.findField(name) < 0)
            runtime::raise(runtime::errIndexFieldNotFound, {name});
        for (std::size_t j = 0; j < i; ++j) {
            if (sameName(name, index.fields[j]))
                runtime::raise(runtime::errFieldTwice, {name});
        }
    }
    if (index.primary && std::any_of(table.indexes.begin(), table.indexes.end(),
                                     [](const IndexDef& other) { return other.primary; }))
        runtime::raise(runtime::errPrimaryKeyExists);
}

/// Key fields under the names that the table's fields have.
IndexDef completed(IndexDef index, const TableDefinition& table) {
    for (std::string& name : index.fields)
        name = table.fields[static_cast<std::size_t>(table.findField(name))].name;
    index.unique = index.unique || index.primary;
    return index;
}

void requireNoSuchTable(const DatabaseCore& database, std::string_view name) {
    if (database.store().definition(name))
        runtime::raise(runtime::errTableExists, {name});
}

int ordinalBehindLast(const TableDefinition& table) {
    int last = -1;
    for (const FieldDef& field : table.fields)
        last = std::max(last, field.ordinal);
    return last + 1;
}

void sortByOrdinal(TableDefinition& table) {
    std::stable_sort(table.fields.begin(), table.fields.end(),
                     [](const FieldDef& a, const FieldDef& b) { return a.ordinal < b.ordinal; });
}

} // namespace

TableCore::TableCore(std::string name, bool asFound) : m_name(std::move(name)), m_asFound(asFound) {
    m_draft.name = m_name;
}

TableCore::TableCore(std::shared_ptr<DatabaseCore> database,
                     std::shared_ptr<const TableDefinition> definition)
    : m_database(std::move(database)),
      m_name(definition->name),
      m_snapshot(std::move(definition)),
      m_seenVersion(m_database->shared().definitionsVersion()) {}

const TableDefinition& TableCore::definition() const {
    if (!isAppended())
        return m_draft;
    SharedStore& shared = m_database->shared();
    if (m_seenVersion != shared.definitionsVersion()) {
        m_snapshot = shared.store().definition(m_name);
        m_seenVersion = shared.definitionsVersion();
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

bool TableCore::acceptsAsFound() const {
    return isAppended() ? m_database->acceptsAsFound() : m_asFound;
}

void TableCore::appendTo(const std::shared_ptr<DatabaseCore>& database) {
    if (isAppended())
        runtime::raise(runtime::errObjectExists, {m_name});
    requireNewName(m_name, database->acceptsAsFound());
    requireNoSuchTable(*database, m_name);
    database->changeDefinitions([&](Store& store) { store.createTable(m_draft); });
    m_database = database;
    database->addTable(shared_from_this());
}

void TableCore::rename(const std::string& newName) {
    if (newName == m_name)
        return;
    requireNewName(newName, acceptsAsFound());
    if (isAppended() && !sameName(newName, m_name))
        requireNoSuchTable(*m_database, newName);
    change([&](TableDefinition& draft) { draft.name = newName; },
           [&](Store& store) { store.renameTable(m_name, newName); });
    m_name = newName;
}

void TableCore::addField(FieldDef field) {
    const TableDefinition& table = definition();
    requireNewName(field.name, acceptsAsFound());
    field = completed(std::move(field));
    if (table.findField(field.name) >= 0)
        runtime::raise(runtime::errFieldTwice, {field.name});
    if (table.fields.size() >= static_cast<std::size_t>(maxFields))
        runtime::raise(runtime::errTooManyFields);
    change(
        [&](TableDefinition& draft) {
            if (field.ordinal < 0)
                field.ordinal = ordinalBehindLast(draft);
            draft.fields.push_back(field);
            sortByOrdinal(draft);
        },
        [&](Store& store) { store.addField(m_name, field); });
}

void TableCore::dropField(std::string_view name) {
    const TableDefinition& table = definition();
    const std::size_t position = requirePosition(table.findField(name), table.fields.size());
    const std::string exact = table.fields[position].name;
    const bool isKey = std::any_of(table.indexes.begin(), table.indexes.end(), [&](const IndexDef& index) {
        return std::any_of(index.fields.begin(), index.fields.end(),
                           [&](const std::string& key) { return sameName(key, exact); });
    });
    if (isKey)
        runtime::raise(runtime::errFieldInIndex, {exact});
    change(
        [&](TableDefinition& draft) {
            draft.fields.erase(draft.fields.begin() + static_cast<std::ptrdiff_t>(position));
        },
        [&](Store& store) { store.dropField(m_name, exact); });
}

void TableCore::renameField(std::string_view name, const std::string& newName) {
    const TableDefinition& table = definition();
    const std::size_t position = requirePosition(table.findField(name), table.fields.size());
    const std::string exact = table.fields[position].name;
    if (newName == exact)
        return;
    requireNewName(newName, acceptsAsFound());
    const int other = table.findField(newName);
    if (other >= 0 && static_cast<std::size_t>(other) != position)
        runtime::raise(runtime::errFieldTwice, {newName});
    change(
        [&](TableDefinition& draft) {
            draft.fields[position].name = newName;
            for (IndexDef& index : draft.indexes)
                std::replace(index.fields.begin(), index.fields.end(), exact, newName);
        },
        [&](Store& store) { store.renameField(m_name, exact, newName); });
}

void TableCore::setOrdinal(std::string_view field, int ordinal) {
    if (ordinal < 0)
        runtime::raise(runtime::errInvalidArgument);
    const auto& fields = definition().fields;
    const std::size_t position = requirePosition(definition().findField(field), fields.size());
    if (fields[position].ordinal == ordinal)
        return;
    change(
        [&](TableDefinition& draft) {
            draft.fields[position].ordinal = ordinal;
            sortByOrdinal(draft);
        },
        [&](Store& store) { store.setOrdinal(m_name, field, ordinal, nullptr); });
}

void TableCore::setAllowZeroLength(std::string_view field, bool allow) {
    const auto& fields = definition().fields;
    const std::size_t position = requirePosition(definition().findField(field), fields.size());
    if (fields[position].allowZeroLength == allow)
        return;
    change([&](TableDefinition& draft) { draft.fields[position].allowZeroLength = allow; },
           [&](Store& store) { store.setAllowZeroLength(m_name, field, allow, nullptr); });
}

void TableCore::addIndex(const IndexDef& index) {
    const TableDefinition& table = definition();
    requireValid(index, table, acceptsAsFound());
    const IndexDef complete = completed(index, table);
    change([&](TableDefinition& draft) { draft.indexes.push_back(complete); },
           [&](Store& store) { store.createIndex(m_name, complete); });
}

void TableCore::dropIndex(std::string_view name) {
    const TableDefinition& table = definition();
    const std::size_t position = requirePosition(table.findIndex(name), table.indexes.size());
    const std::string exact = table.indexes[position].name;
    change(
        [&](TableDefinition& draft) {
            draft.indexes.erase(draft.indexes.begin() + static_cast<std::ptrdiff_t>(position));
        },
        [&](Store& store) { store.dropIndex(m_name, exact); });
}

template <typename OnDraft, typename OnStore>
void TableCore::change(OnDraft&& onDraft, OnStore&& onStore) {
    if (isAppended())
        m_database->changeDefinitions(onStore);
    else
        onDraft(m_draft);
}

} // namespace tol::data
