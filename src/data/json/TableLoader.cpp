// SPDX-License-Identifier: MIT
#include "data/json/TableLoader.h"

#include "data/engine/FileError.h"
#include "runtime/RuntimeError.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace tol::data::json {
namespace {

using runtime::RuntimeError;

/// Runs a step; an error of it gets the place in front.
template <typename Place, typename Step>
void at(const Place& place, Step&& step) {
    try {
        step();
    } catch (const RuntimeError& error) {
        throw atPlace(place(), error);
    }
}

} // namespace

void TableLoader::beginTable() {
    m_wanted = {};
    m_made = false;
    m_indexesMade = 0;
    m_row = 0;
}

void TableLoader::makeTable() {
    const auto lastUnique = std::find_if(m_wanted.indexes.rbegin(), m_wanted.indexes.rend(),
                                         [](const IndexDef& index) { return index.unique || index.primary; });
    m_indexesMade = static_cast<std::size_t>(m_wanted.indexes.rend() - lastUnique);
    TableDefinition table = m_wanted;
    table.indexes.resize(m_indexesMade);
    m_database.CreateTable(table);
    m_made = true;
}

void TableLoader::beginRows() {
    at([this] { return place(); },
       [this] {
           makeTable();
           m_rows = m_database.OpenRecordset(m_wanted.name);
           m_targets.clear();
           for (const FieldDef& field : m_wanted.fields)
               m_targets.push_back(m_rows.Fields(field.name));
       });
}

void TableLoader::beginRow() {
    ++m_row;
    m_value = 0;
    at([this] { return place(); }, [this] { m_rows.AddNew(); });
}

template <typename MakeValue>
void TableLoader::store(MakeValue&& makeValue) {
    if (m_value == m_targets.size())
        throw RuntimeError(runtime::errInvalidArgument,
                           fmt::format("{}: there are more values than the {} fields of the table.", place(),
                                       m_targets.size()));
    const FieldDef& field = m_wanted.fields[m_value];
    at([&] { return fmt::format("{}, field \"{}\"", place(), field.name); },
       [&] { m_targets[m_value].Value(makeValue(field.type)); });
    ++m_value;
}

void TableLoader::addValue(JsonScalar scalar) {
    store([&](FieldType type) { return toFieldValue(type, std::move(scalar)); });
}

void TableLoader::addRawText(std::string text) {
    store([&](FieldType type) -> runtime::Value {
        if (!holdsText(type))
            throw RuntimeError(runtime::errTypeMismatch, describe(runtime::errTypeMismatch) +
                                                             ": only a field of texts takes an object.");
        return std::move(text);
    });
}

void TableLoader::endRow() {
    if (m_value != m_targets.size())
        throw RuntimeError(runtime::errInvalidArgument,
                           fmt::format("{}: there are {} values, but the table has {} fields.", place(),
                                       m_value, m_targets.size()));
    at([this] { return place(); }, [this] { m_rows.Update(); });
    if (m_watcher)
        m_watcher({m_wanted.name, m_row, 0});
}

void TableLoader::endTable() {
    m_row = 0;
    m_targets.clear();
    m_rows = Recordset();
    at([this] { return place(); },
       [this] {
           if (!m_made)
               makeTable();
           makeRemainingIndexes();
       });
}

void TableLoader::makeRemainingIndexes() {
    if (m_indexesMade == m_wanted.indexes.size())
        return;
    TableDef table = m_database.TableDefs(m_wanted.name);
    for (std::size_t index = m_indexesMade; index < m_wanted.indexes.size(); ++index)
        table.Indexes().Append(Index(m_wanted.indexes[index]));
}

std::string TableLoader::place() const {
    return m_row == 0 ? fmt::format("table \"{}\"", m_wanted.name)
                      : fmt::format("table \"{}\", row {}", m_wanted.name, m_row);
}

} // namespace tol::data::json
