// SPDX-License-Identifier: MIT
#include "data/TableDefs.h"

#include "data/DatabaseCore.h"
#include "data/Positions.h"
#include "data/TableCore.h"
#include "runtime/RuntimeError.h"

namespace tol::data {

int TableDefs::Count() const {
    return static_cast<int>(m_core->shared().tableNames().size());
}

TableDef TableDefs::operator()(std::string_view name) const {
    auto table = m_core->table(name);
    if (!table)
        runtime::raise(runtime::errItemNotFound);
    return TableDef(std::move(table));
}

TableDef TableDefs::operator()(int position) const {
    const auto& names = m_core->shared().tableNames();
    return (*this)(names[requirePosition(position, names.size())]);
}

void TableDefs::Append(TableDef& table) {
    table.m_core->appendTo(m_core);
}

void TableDefs::Delete(std::string_view name) {
    const std::string exact = (*this)(name).Name();
    m_core->changeDefinitions([&](Store& store) { store.dropTable(exact); });
}

} // namespace tol::data
