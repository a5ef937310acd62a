// SPDX-License-Identifier: MIT
#include "data/sqlite/PhysicalTableBuilder.h"

#include "data/sqlite/DeclaredTypes.h"
#include "data/sqlite/Sql.h"

#include <algorithm>
#include <numeric>
#include <string_view>

namespace tol::data::sqlite {

namespace {

constexpr const char* primaryKeyName = "PrimaryKey";

bool isHiddenColumn(const std::string& name) {
    return name.starts_with(hiddenColumnPrefix);
}

bool isText(FieldType type) {
    return type == dbText || type == dbMemo;
}

/// The catalogue's word on a column counts as long as the column is still declared as we declared it.
bool describesColumn(const FieldRow& row, const SchemaColumn& column, bool strict) {
    return isFieldType(row.type) &&
           sameSqlName(column.type, declaredType(static_cast<FieldType>(row.type), row.size, strict));
}

/// A constraint's index is called after its columns.
std::string joinedColumns(const SchemaIndex& index) {
    std::string name;
    for (const SchemaKey& key : index.keys)
        name += (name.empty() ? "" : "_") + key.column;
    return name;
}

/// Brings `items` into the order of `positions`.
template <typename Item>
std::vector<Item> arranged(std::vector<Item>& items, const std::vector<std::size_t>& positions) {
    std::vector<Item> result;
    result.reserve(items.size());
    for (const std::size_t position : positions)
        result.push_back(std::move(items[position]));
    return result;
}

} // namespace

std::optional<PhysicalTable> PhysicalTableBuilder::build() {
    m_table.definition.name = m_schema.name;
    m_table.sqlName = m_schema.name;
    m_table.withoutRowId = m_schema.withoutRowId;
    m_table.strict = m_schema.strict;
    if (!addRowKey())
        return std::nullopt;
    addFields();
    addIndexes();
    return std::move(m_table);
}

bool PhysicalTableBuilder::addRowKey() {
    if (m_schema.withoutRowId) {
        addPrimaryKeyAsRowKey();
        return true;
    }
    const auto name = m_schema.rowIdName();
    if (!name)
        return false;
    m_table.rowKey = {*name};
    m_table.own = m_schema.rowIdAlias() != nullptr && sameSqlName(*name, rowKeyColumn);
    return true;
}

void PhysicalTableBuilder::addPrimaryKeyAsRowKey() {
    m_table.rowKey = m_schema.primaryKey();
    for (const SchemaIndex& index : m_schema.indexes) {
        if (index.origin != IndexOrigin::PrimaryKey)
            continue;
        for (const SchemaKey& key : index.keys) {
            m_table.rowKeyOrder.collations.push_back(isKnown(key.collation) ? key.collation : "");
            m_table.rowKeyOrder.descending.push_back(key.descending);
        }
    }
}

void PhysicalTableBuilder::addFields() {
    int position = 0;
    for (const SchemaColumn& column : m_schema.columns) {
        const bool isOwnKey = m_table.own && column.name == m_table.rowKey.front();
        if (isHiddenColumn(column.name))
            ++m_table.hiddenColumns;
        else if (!isOwnKey && !column.generated)
            addField(column, position++);
    }
    sortFields();
}

void PhysicalTableBuilder::addField(const SchemaColumn& column, int position) {
    const FieldRow* row = fieldRow(column.name);
    FieldDef field;
    field.name = column.name;
    field.ordinal = position;
    Column place;
    place.name = column.name;
    if (row != nullptr && describesColumn(*row, column, m_schema.strict)) {
        field.type = static_cast<FieldType>(row->type);
        field.size = row->size;
        field.required = row->required;
        place.storage = ownStorage(field.type);
        place.own = true;
    } else {
        const ColumnType type = readDeclaredType(column.type);
        const bool fillsItself = column.defaultValue.has_value() || &column == m_schema.rowIdAlias();
        field.type = type.type;
        field.size = type.size;
        field.required = column.notNull && !fillsItself;
        field.allowZeroLength = isText(type.type);
        place.storage = type.storage;
        place.holdsNumbers = type.type == dbLong || type.type == dbDouble;
    }
    if (row != nullptr) {
        field.name = row->field;
        field.ordinal = row->ordinal;
        field.allowZeroLength = row->allowZeroLength;
    }
    m_table.definition.fields.push_back(std::move(field));
    m_table.columns.push_back(std::move(place));
}

void PhysicalTableBuilder::sortFields() {
    std::vector<FieldDef>& fields = m_table.definition.fields;
    std::vector<std::size_t> order(fields.size());
    std::iota(order.begin(), order.end(), 0);
    std::ranges::stable_sort(order, {}, [&fields](std::size_t at) { return fields[at].ordinal; });
    fields = arranged(fields, order);
    m_table.columns = arranged(m_table.columns, order);
}

void PhysicalTableBuilder::addIndexes() {
    const SchemaColumn* alias = m_schema.rowIdAlias();
    if (alias != nullptr && !m_table.own && !isDeleted(""))
        addRowIdIndex(*alias);
    for (const SchemaIndex& index : m_schema.indexes)
        if (isTold(index))
            addIndex(index);
}

void PhysicalTableBuilder::addRowIdIndex(const SchemaColumn& alias) {
    const std::string* field = fieldOf(alias.name);
    if (field == nullptr)
        return;
    m_table.definition.indexes.push_back({primaryKeyName, {*field}, true, true});
    m_table.indexes.push_back({"", IndexKind::RowId, {""}, {false}});
}

void PhysicalTableBuilder::addIndex(const SchemaIndex& index) {
    const IndexRow* row = indexRow(index.name);
    IndexDef definition;
    definition.name = indexName(index);
    definition.unique = index.unique;
    definition.primary = row != nullptr ? row->primary : index.origin == IndexOrigin::PrimaryKey;
    PhysicalIndex place;
    place.sqlName = index.name;
    place.kind = row != nullptr                         ? IndexKind::Own
                 : index.origin == IndexOrigin::Created ? IndexKind::Foreign
                                                        : IndexKind::Constraint;
    for (const SchemaKey& key : index.keys) {
        definition.fields.push_back(*fieldOf(key.column));
        place.collations.push_back(key.collation);
        place.descending.push_back(key.descending);
    }
    m_table.definition.indexes.push_back(std::move(definition));
    m_table.indexes.push_back(std::move(place));
}

bool PhysicalTableBuilder::isTold(const SchemaIndex& index) const {
    if (index.origin != IndexOrigin::Created && isDeleted(index.name))
        return false;
    return !index.partial && std::ranges::all_of(index.keys, [this](const SchemaKey& key) {
        return !key.expression && fieldOf(key.column) != nullptr && isKnown(key.collation);
    });
}

bool PhysicalTableBuilder::isDeleted(const std::string& sqlName) const {
    return std::ranges::any_of(m_indexRows, [&](const IndexRow& row) {
        return row.sqlName == sqlName && row.index.starts_with(deletedIndexPrefix);
    });
}

bool PhysicalTableBuilder::isKnown(const std::string& collation) const {
    return containsName(m_collations, collation);
}

std::string PhysicalTableBuilder::indexName(const SchemaIndex& index) const {
    if (const IndexRow* row = indexRow(index.name))
        return row->index;
    switch (index.origin) {
    case IndexOrigin::PrimaryKey:
        return freeName(primaryKeyName);
    case IndexOrigin::UniqueConstraint:
        return freeName(joinedColumns(index));
    case IndexOrigin::Created:
        break;
    }
    return freeName(index.name);
}

/// Index names must differ within the table; a number tells two of the same name apart.
std::string PhysicalTableBuilder::freeName(const std::string& wanted) const {
    std::string name = wanted;
    for (int number = 2; m_table.definition.findIndex(name) >= 0; ++number)
        name = wanted + "_" + std::to_string(number);
    return name;
}

const FieldRow* PhysicalTableBuilder::fieldRow(const std::string& column) const {
    const auto found = std::ranges::find(m_fieldRows, column, &FieldRow::column);
    return found == m_fieldRows.end() ? nullptr : &*found;
}

const IndexRow* PhysicalTableBuilder::indexRow(const std::string& sqlName) const {
    const auto found = std::ranges::find(m_indexRows, sqlName, &IndexRow::sqlName);
    return found == m_indexRows.end() ? nullptr : &*found;
}

const std::string* PhysicalTableBuilder::fieldOf(const std::string& column) const {
    const auto found = std::ranges::find(m_table.columns, column, &Column::name);
    if (found == m_table.columns.end())
        return nullptr;
    return &m_table.definition.fields[static_cast<std::size_t>(found - m_table.columns.begin())].name;
}

} // namespace tol::data::sqlite
