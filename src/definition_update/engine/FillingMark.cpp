// SPDX-License-Identifier: MIT
#include "definition_update/engine/FillingMark.h"

#include "data/engine/Names.h"
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
    if (!isSet())
        m_definitions.CreateTable({.name = markTable});
    runtime::flush();
}

void FillingMark::clear() {
    runtime::flush(); // the rows first
    if (isSet())
        m_definitions.TableDefs().Delete(markTable);
    runtime::flush();
}

} // namespace tol::update
