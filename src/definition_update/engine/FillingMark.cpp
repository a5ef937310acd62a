// SPDX-License-Identifier: MIT
#include "definition_update/engine/FillingMark.h"

#include "data/Names.h"
#include "runtime/Host.h"

#include <string>

namespace tol::update {
namespace {

const std::string markTable = "FILLINGNOTENDED";

} // namespace

bool FillingMark::isSet() const {
    const data::TableDefs tables = m_definitions.TableDefs();
    for (int position = 0; position < tables.Count(); ++position) {
        if (data::sameName(tables(position).Name(), markTable))
            return true;
    }
    return false;
}

void FillingMark::set() {
    if (!isSet()) {
        data::TableDef mark = m_definitions.CreateTableDef(markTable);
        m_definitions.TableDefs().Append(mark);
    }
    runtime::settle();
}

void FillingMark::clear() {
    runtime::settle(); // the rows first
    if (isSet())
        m_definitions.TableDefs().Delete(markTable);
    runtime::settle();
}

} // namespace tol::update
