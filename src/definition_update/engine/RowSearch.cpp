// SPDX-License-Identifier: MIT
#include "definition_update/engine/RowSearch.h"

#include "runtime/Conversions.h"
#include "shell/vdfunctions/vdRecords.h"
#include "shell/vdfunctions/vdTexts.h"

#include <algorithm>
#include <utility>

namespace tol::update {

RowSearch::RowSearch(data::Recordset& rows, std::string index, std::vector<data::Field> fields)
    : m_rows(rows), m_index(std::move(index)), m_fields(std::move(fields)) {}

bool RowSearch::find(std::initializer_list<std::string> keys) {
    return standsOn(keys) || (moveNext() && standsOn(keys)) || search(keys);
}

bool RowSearch::standsOn(std::initializer_list<std::string> keys) const {
    return m_onRow && std::equal(keys.begin(), keys.end(), m_fields.begin(),
                                 [](const std::string& key, const data::Field& field) {
                                     return runtime::valuesEqual(field.Value(), key);
                                 });
}

bool RowSearch::moveNext() {
    if (!std::exchange(m_onRow, false))
        return false;
    m_rows.MoveNext();
    return m_onRow = !m_rows.AtEOF();
}

bool RowSearch::search(std::initializer_list<std::string> keys) {
    m_onRow = false;
    shell::KeyPairs pairs;
    auto field = m_fields.begin();
    for (const std::string& key : keys)
        pairs.push_back({key, *field++});
    return m_onRow = shell::vdNotBlank(shell::vdFindFirst(m_rows, m_index, pairs));
}

} // namespace tol::update
