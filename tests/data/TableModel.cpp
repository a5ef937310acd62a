// SPDX-License-Identifier: MIT
#include "TableModel.h"

#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

#include <algorithm>

namespace tol::test {
namespace {

using runtime::Value;

int compareValues(const Value& left, const Value& right) {
    if (left.isNull() || right.isNull())
        return static_cast<int>(right.isNull()) - static_cast<int>(left.isNull());
    if (left.is<std::string>())
        return runtime::compareText(left.get<std::string>(), right.get<std::string>());
    const double difference = runtime::toDouble(left) - runtime::toDouble(right);
    return difference < 0 ? -1 : difference > 0 ? 1 : 0;
}

bool anyNull(const Row& keys) {
    return std::any_of(keys.begin(), keys.end(), [](const Value& key) { return key.isNull(); });
}

} // namespace

bool TableModel::isDuplicate(const Row& row, int except) const {
    return std::any_of(m_definition.indexes.begin(), m_definition.indexes.end(), [&](const auto& index) {
        const Row own = keys(index.name, row);
        return isOnePlace(index.name, own) &&
               std::any_of(m_rows.begin(), m_rows.end(), [&](const auto& other) {
                   return other.first != except && compare(own, keys(index.name, other.second)) == 0;
               });
    });
}

int TableModel::add(Row row) {
    m_rows[m_next] = std::move(row);
    return m_next++;
}

Row TableModel::keys(const std::string& index, const Row& row) const {
    Row keys;
    for (const std::size_t field : keyFields(index))
        keys.push_back(row[field]);
    return keys;
}

std::vector<std::size_t> TableModel::keyFields(const std::string& index) const {
    std::vector<std::size_t> fields;
    if (index.empty())
        return fields;
    for (const auto& name :
         m_definition.indexes[static_cast<std::size_t>(m_definition.findIndex(index))].fields)
        fields.push_back(static_cast<std::size_t>(m_definition.findField(name)));
    return fields;
}

bool TableModel::isOnePlace(const std::string& index, const Row& keys) const {
    return !index.empty() &&
           m_definition.indexes[static_cast<std::size_t>(m_definition.findIndex(index))].unique &&
           !anyNull(keys);
}

int TableModel::compare(std::span<const Value> left, std::span<const Value> right) {
    for (std::size_t i = 0; i < std::min(left.size(), right.size()); ++i) {
        if (const int order = compareValues(left[i], right[i]))
            return order;
    }
    return 0;
}

int RecordsetModel::readError() const {
    if (m_place != Place::OnRecord)
        return runtime::errNoCurrentRecord;
    return m_table->rows().contains(m_row) ? 0 : runtime::errRecordDeleted;
}

void RecordsetModel::setIndex(const std::string& name) {
    m_index = name;
    moveFirst();
}

int RecordsetModel::moveFirst() {
    startWalk();
    const auto rows = inOrder();
    standOn(rows.empty() ? 0 : rows.front());
    return rows.empty() ? runtime::errNoCurrentRecord : 0;
}

int RecordsetModel::moveLast() {
    startWalk();
    m_forward = false;
    const auto rows = inOrder();
    standOn(rows.empty() ? 0 : rows.back());
    return rows.empty() ? runtime::errNoCurrentRecord : 0;
}

int RecordsetModel::setBookmark(int row) {
    startWalk();
    m_place = Place::Nowhere;
    if (!m_table->rows().contains(row))
        return runtime::errRecordDeleted;
    standOn(row);
    return 0;
}

void RecordsetModel::seek(std::string_view comparison, std::span<const Value> keys) {
    startWalk();
    m_place = Place::Nowhere;
    std::vector<int> rows = inOrder();
    m_forward = comparison != "<=";
    if (!m_forward)
        std::ranges::reverse(rows);
    for (const int row : rows) {
        const int order = TableModel::compare(m_table->keys(m_index, m_table->rows().at(row)), keys);
        if (order == 0 || (comparison == ">=" && order > 0) || (comparison == "<=" && order < 0)) {
            standOn(row);
            break;
        }
    }
    m_noMatch = m_place == Place::Nowhere;
}

int RecordsetModel::update(const Row& row) {
    if (const int error = readError())
        return error;
    if (m_table->isDuplicate(row, m_row))
        return runtime::errDuplicateKey;
    if (m_table->keys(m_index, row) != m_table->keys(m_index, m_table->rows().at(m_row)))
        m_moved.insert(m_row);
    m_table->replace(m_row, row);
    return 0;
}

int RecordsetModel::remove() {
    if (const int error = readError())
        return error;
    m_table->remove(m_row);
    m_place = Place::BehindDeleted;
    return 0;
}

bool RecordsetModel::isOff(Place end) const {
    return m_place != Place::OnRecord &&
           (m_place == end || m_place == Place::OffBothEnds || m_table->rows().empty());
}

std::vector<int> RecordsetModel::inOrder() const {
    std::vector<int> order;
    for (const auto& [number, row] : m_table->rows())
        order.push_back(number);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        return TableModel::compare(m_table->keys(m_index, m_table->rows().at(a)),
                                   m_table->keys(m_index, m_table->rows().at(b))) < 0;
    });
    return order;
}

bool RecordsetModel::isBeyond(int row, bool forward) const {
    int order = TableModel::compare(m_table->keys(m_index, m_table->rows().at(row)), m_keys);
    // In a unique index there is but one place for a key: who took it over stands where the walk is.
    if (order == 0 && !m_table->isOnePlace(m_index, m_keys))
        order = row - m_row;
    return forward ? order > 0 : order < 0;
}

int RecordsetModel::step(bool forward) {
    if (m_place != Place::OnRecord && m_place != Place::BehindDeleted)
        return runtime::errNoCurrentRecord;
    if (forward != m_forward)
        m_moved.clear();
    m_forward = forward;
    auto rows = inOrder();
    if (!forward)
        std::reverse(rows.begin(), rows.end());
    const auto next = std::find_if(rows.begin(), rows.end(),
                                   [&](int row) { return isBeyond(row, forward) && !m_moved.contains(row); });
    if (next != rows.end())
        standOn(*next);
    else
        m_place = forward ? Place::BehindLast : Place::BeforeFirst;
    return 0;
}

void RecordsetModel::startWalk() {
    m_moved.clear();
    m_forward = true;
}

/// 0 stands for a table that was found empty.
void RecordsetModel::standOn(int row) {
    m_place = row == 0 ? Place::OffBothEnds : Place::OnRecord;
    m_row = row;
    if (row != 0)
        m_keys = m_table->keys(m_index, m_table->rows().at(row));
}

} // namespace tol::test
