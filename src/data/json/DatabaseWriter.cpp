// SPDX-License-Identifier: MIT
#include "data/json/DatabaseWriter.h"

#include "data/FieldValue.h"
#include "data/FileError.h"
#include "data/Names.h"
#include "data/json/JsonText.h"
#include "data/json/JsonValue.h"
#include "data/json/TableDraft.h"
#include "runtime/RuntimeError.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

namespace tol::data::json {
namespace {

using runtime::RuntimeError;

void appendName(std::string& out, std::string_view name) {
    if (!isUtf8(name))
        throw RuntimeError(runtime::errInvalidName, "A name that is no UTF-8 has no place in JSON.");
    appendQuoted(out, name);
}

void appendField(std::string& out, const FieldDef& field) {
    out += "{\"name\": ";
    appendName(out, field.name);
    fmt::format_to(std::back_inserter(out),
                   ", \"type\": {}, \"size\": {}, \"ordinal\": {}, \"allowZeroLength\": {}}}",
                   static_cast<int>(field.type), field.size, field.ordinal, field.allowZeroLength);
}

void appendIndex(std::string& out, const IndexDef& index) {
    out += "{\"name\": ";
    appendName(out, index.name);
    out += ", \"fields\": [";
    for (std::size_t key = 0; key < index.fields.size(); ++key) {
        out += key == 0 ? "" : ", ";
        appendName(out, index.fields[key]);
    }
    fmt::format_to(std::back_inserter(out), "], \"unique\": {}, \"primary\": {}}}",
                   index.unique || index.primary, index.primary);
}

/// An array with each element in a line of its own.
template <typename Elements, typename Append>
void appendLines(std::string& out, const Elements& elements, Append append) {
    out += '[';
    const char* separator = "\n   ";
    for (const auto& element : elements) {
        out += separator;
        append(out, element);
        separator = ",\n   ";
    }
    out += ']';
}

template <typename Place>
runtime::Value valueOf(const Field& field, const Place& place) {
    try {
        return field.Value();
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.number(), place() + ": " + error.description(), error.engineText());
    }
}

/// The rules that load asks of a value, and that another maker's file need not have kept.
void requireLoadable(const TableDefinition& table, const FieldDef& field, const runtime::Value& value) {
    requireFits(field, value);
    if (value.is<std::string>() && value.get<std::string>().empty() && !field.allowZeroLength)
        runtime::raise(runtime::errZeroLength, {field.name});
    if (!value.isNull())
        return;
    for (const IndexDef& index : table.indexes) {
        if (index.primary && std::ranges::find(index.fields, field.name) != index.fields.end())
            runtime::raise(runtime::errNullInIndex, {index.name});
    }
}

} // namespace

void DatabaseWriter::write() {
    try {
        writeTables();
    } catch (const RuntimeError& error) {
        if (!m_out)
            throw;
        throw aboutFile(error, m_database.Name());
    }
}

void DatabaseWriter::writeTables() {
    m_database.AcceptAsFound();
    m_text = "{\"tables\": [";
    const TableDefs tables = m_database.TableDefs();
    for (int position = 0; position < tables.Count(); ++position) {
        m_text += position == 0 ? "\n " : ",\n ";
        writeTable(tables(position).definition());
    }
    m_text += "]}\n";
    flush();
}

void DatabaseWriter::writeTable(const TableDefinition& table) {
    passes([&] { return fmt::format("Table \"{}\"", table.name); },
           [&] {
               requireNewName(table.name, true);
               draftOf(m_database, table, table.indexes.size());
           });
    m_text += "{\"name\": ";
    appendName(m_text, table.name);
    m_text += ",\n  \"fields\": ";
    appendLines(m_text, table.fields, appendField);
    m_text += ",\n  \"indexes\": ";
    appendLines(m_text, table.indexes, appendIndex);
    if (!m_options.schemaOnly)
        writeRows(table);
    m_text += '}';
    flush();
}

void DatabaseWriter::writeRows(const TableDefinition& table) {
    m_text += ",\n  \"rows\": [";
    Recordset rows = m_database.OpenRecordset(table.name);
    std::vector<Field> fields;
    for (const FieldDef& field : table.fields)
        fields.push_back(rows.Fields(field.name));
    m_told.assign(fields.size(), false);

    const std::int64_t count = rows.RecordCount();
    for (m_row = 1; !rows.AtEOF(); ++m_row) {
        m_text += m_row == 1 ? "\n   " : ",\n   ";
        appendRow(table, fields);
        flush();
        if (m_options.watcher)
            m_options.watcher({table.name, m_row, count});
        rows.MoveNext();
    }
    m_text += ']';
}

void DatabaseWriter::appendRow(const TableDefinition& table, const std::vector<Field>& fields) {
    m_text += '[';
    for (std::size_t at = 0; at < fields.size(); ++at) {
        const FieldDef& field = table.fields[at];
        const auto place = [&] {
            return fmt::format("Table \"{}\", row {}, field \"{}\"", table.name, m_row, field.name);
        };
        const runtime::Value value = valueOf(fields[at], place);
        if (!m_told[at])
            m_told[at] = !passes(place, [&] { requireLoadable(table, field, value); });
        m_text += at == 0 ? "" : ", ";
        appendValue(m_text, value);
    }
    m_text += ']';
}

template <typename Place, typename Check>
bool DatabaseWriter::passes(const Place& place, Check&& check) {
    try {
        check();
        return true;
    } catch (const RuntimeError& error) {
        const RuntimeError told(error.number(), place() + ": " + error.description(), error.engineText());
        if (!m_options.complain)
            throw told;
        m_options.complain(aboutFile(told, m_database.Name()));
        return false;
    }
}

void DatabaseWriter::flush() {
    m_out.write(m_text.data(), static_cast<std::streamsize>(m_text.size()));
    m_text.clear();
    if (!m_out)
        throw RuntimeError(runtime::errDiskOrNetwork, "The JSON text can't be written.");
}

} // namespace tol::data::json
