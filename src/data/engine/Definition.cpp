// SPDX-License-Identifier: MIT
#include "data/engine/Definition.h"

#include "data/engine/Names.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

#include <algorithm>

namespace tol::data {
namespace {

struct TypeSize {
    FieldType type;
    int size;
};

constexpr TypeSize sizes[] = {
    {dbBoolean, 1}, {dbByte, 1}, {dbInteger, 2}, {dbLong, 4},       {dbCurrency, 8}, {dbSingle, 4},
    {dbDouble, 8},  {dbDate, 8}, {dbText, 0},    {dbLongBinary, 0}, {dbMemo, 0},     {dbGUID, 16},
};

const TypeSize* findType(int type) {
    const auto* found = std::find_if(std::begin(sizes), std::end(sizes),
                                     [&](const TypeSize& entry) { return entry.type == type; });
    return found == std::end(sizes) ? nullptr : found;
}

/// Names are mostly asked for as they are spelled; that needs no folding.
template <typename Item>
int findByName(const std::vector<Item>& items, std::string_view name) {
    const auto position = [&](auto matches) {
        const auto found = std::find_if(items.begin(), items.end(), matches);
        return found == items.end() ? -1 : static_cast<int>(found - items.begin());
    };
    const int exact = position([&](const Item& item) { return item.name == name; });
    return exact >= 0 ? exact : position([&](const Item& item) { return sameName(item.name, name); });
}

} // namespace

bool isFieldType(int type) {
    return findType(type) != nullptr;
}

std::size_t requirePosition(int position, std::size_t count) {
    if (position < 0 || static_cast<std::size_t>(position) >= count)
        runtime::raise(runtime::errItemNotFound);
    return static_cast<std::size_t>(position);
}

int reportedSize(FieldType type, int declaredSize) {
    if (type == dbText)
        return declaredSize;
    const TypeSize* entry = findType(type);
    return entry == nullptr ? 0 : entry->size;
}

int TableDefinition::findField(std::string_view fieldName) const {
    return findByName(fields, fieldName);
}

int TableDefinition::findIndex(std::string_view indexName) const {
    return findByName(indexes, indexName);
}

std::shared_ptr<const TableDefinition> Catalogue::find(std::string_view table) const {
    const auto isBefore = [](const auto& entry, std::string_view name) {
        return runtime::compareText(entry->name, name) < 0;
    };
    const auto found = std::lower_bound(m_tables.begin(), m_tables.end(), table, isBefore);
    return found != m_tables.end() && sameName((*found)->name, table) ? *found : nullptr;
}

} // namespace tol::data
