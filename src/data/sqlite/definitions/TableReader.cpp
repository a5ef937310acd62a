// SPDX-License-Identifier: MIT
#include "data/sqlite/definitions/TableReader.h"

#include "data/sqlite/connection/Statement.h"
#include "data/sqlite/definitions/DeclaredTypes.h"

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

std::optional<StoredTable> TableReader::build() {
    m_table.definition.name = m_schema.name;
    m_table.sqlName = m_schema.name;
    m_table.strict = m_schema.strict;
    if (!addRowKey())
        return std::nullopt;
    addFields();
    addIndexes();
    return std::move(m_table);
}

bool TableReader::addRowKey() {
    if (m_schema.withoutRowId) {
        m_table.definition.withoutRowKeys = true;
        return true;
    }
    const auto name = m_schema.rowIdName();
    if (!name)
        return false;
    m_table.rowKey = *name;
    m_table.own = m_schema.rowIdAlias() != nullptr && sameSqlName(*name, rowKeyColumn);
    return true;
}

void TableReader::addFields() {
    int position = 0;
    for (const SchemaColumn& column : m_schema.columns) {
        const bool isOwnKey = m_table.own && column.name == m_table.rowKey;
        if (isHiddenColumn(column.name))
            ++m_table.hiddenColumns;
        else if (!isOwnKey && !column.generated)
            addField(column, position++);
    }
    sortFields();
}

void TableReader::addField(const SchemaColumn& column, int position) {
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

void TableReader::sortFields() {
    std::vector<FieldDef>& fields = m_table.definition.fields;
    std::vector<std::size_t> order(fields.size());
    std::iota(order.begin(), order.end(), 0);
    std::ranges::stable_sort(order, {}, [&fields](std::size_t at) { return fields[at].ordinal; });
    fields = arranged(fields, order);
    m_table.columns = arranged(m_table.columns, order);
}

void TableReader::addIndexes() {
    const SchemaColumn* alias = m_schema.rowIdAlias();
    if (alias != nullptr && !m_table.own && !isDeleted(""))
        addRowIdIndex(*alias);
    for (const SchemaIndex& index : m_schema.indexes)
        if (isExposed(index))
            addIndex(index);
        else if (index.unique)
            m_table.hasHiddenUnique = true;
}

void TableReader::addRowIdIndex(const SchemaColumn& alias) {
    const std::string* field = fieldOf(alias.name);
    if (field == nullptr)
        return;
    m_table.definition.indexes.push_back({primaryKeyName, {*field}, true, true});
    m_table.indexes.push_back({"", IndexKind::RowId, {""}, {false}});
}

void TableReader::addIndex(const SchemaIndex& index) {
    const IndexRow* row = indexRow(index.name);
    IndexDef definition;
    definition.name = indexName(index);
    definition.unique = index.unique;
    definition.primary = row != nullptr ? row->primary : index.origin == IndexOrigin::PrimaryKey;
    StoredIndex place;
    place.sqlName = index.name;
    place.kind = row != nullptr                         ? IndexKind::Own
                 : index.origin == IndexOrigin::Created ? IndexKind::Foreign
                                                        : IndexKind::Constraint;
    definition.foreign = place.kind != IndexKind::Own;
    for (const SchemaKey& key : index.keys) {
        definition.fields.push_back(*fieldOf(key.column));
        place.collations.push_back(key.collation);
        place.descending.push_back(key.descending);
    }
    m_table.definition.indexes.push_back(std::move(definition));
    m_table.indexes.push_back(std::move(place));
}

bool TableReader::isExposed(const SchemaIndex& index) const {
    if (index.origin != IndexOrigin::Created && isDeleted(index.name))
        return false;
    return !index.partial && std::ranges::all_of(index.keys, [this](const SchemaKey& key) {
        return !key.expression && fieldOf(key.column) != nullptr && isKnown(key.collation);
    });
}

bool TableReader::isDeleted(const std::string& sqlName) const {
    return std::ranges::any_of(m_indexRows, [&](const IndexRow& row) {
        return row.sqlName == sqlName && row.index.starts_with(deletedIndexPrefix);
    });
}

bool TableReader::isKnown(const std::string& collation) const {
    return containsName(m_collations, collation);
}

std::string TableReader::indexName(const SchemaIndex& index) const {
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
std::string TableReader::freeName(const std::string& wanted) const {
    std::string name = wanted;
    for (int number = 2; m_table.definition.findIndex(name) >= 0; ++number)
        name = wanted + "_" + std::to_string(number);
    return name;
}

const FieldRow* TableReader::fieldRow(const std::string& column) const {
    const auto found = std::ranges::find(m_fieldRows, column, &FieldRow::column);
    return found == m_fieldRows.end() ? nullptr : &*found;
}

const IndexRow* TableReader::indexRow(const std::string& sqlName) const {
    const auto found = std::ranges::find(m_indexRows, sqlName, &IndexRow::sqlName);
    return found == m_indexRows.end() ? nullptr : &*found;
}

const std::string* TableReader::fieldOf(const std::string& column) const {
    const auto found = std::ranges::find(m_table.columns, column, &Column::name);
    if (found == m_table.columns.end())
        return nullptr;
    return &m_table.definition.fields[static_cast<std::size_t>(found - m_table.columns.begin())].name;
}

} // namespace tol::data::sqlite
