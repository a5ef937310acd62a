// SPDX-License-Identifier: MIT
#include "data/json/DatabaseWriter.h"

#include "data/json/JsonText.h"
#include "data/json/JsonValue.h"
#include "runtime/RuntimeError.h"

#include <fmt/format.h>

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

} // namespace

void DatabaseWriter::write(bool schemaOnly) {
    m_text = "{\"tables\": [";
    const TableDefs tables = m_database.TableDefs();
    for (int position = 0; position < tables.Count(); ++position) {
        m_text += position == 0 ? "\n " : ",\n ";
        writeTable(tables(position).definition(), schemaOnly);
    }
    m_text += "]}\n";
    flush();
}

void DatabaseWriter::writeTable(const TableDefinition& table, bool schemaOnly) {
    m_text += "{\"name\": ";
    appendName(m_text, table.name);
    m_text += ",\n  \"fields\": ";
    appendLines(m_text, table.fields, appendField);
    m_text += ",\n  \"indexes\": ";
    appendLines(m_text, table.indexes, appendIndex);
    if (!schemaOnly)
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

    const std::int64_t count = rows.RecordCount();
    for (std::int64_t row = 1; !rows.AtEOF(); ++row) {
        m_text += row == 1 ? "\n   " : ",\n   ";
        try {
            appendRow(fields);
        } catch (const RuntimeError& error) {
            throw RuntimeError(error.number(),
                               fmt::format("Table \"{}\", row {}: {}", table.name, row, error.description()),
                               error.engineText());
        }
        flush();
        if (m_watcher)
            m_watcher({table.name, row, count});
        rows.MoveNext();
    }
    m_text += ']';
}

void DatabaseWriter::appendRow(const std::vector<Field>& fields) {
    m_text += '[';
    for (std::size_t field = 0; field < fields.size(); ++field) {
        m_text += field == 0 ? "" : ", ";
        appendValue(m_text, fields[field].Value());
    }
    m_text += ']';
}

void DatabaseWriter::flush() {
    m_out.write(m_text.data(), static_cast<std::streamsize>(m_text.size()));
    m_text.clear();
    if (!m_out)
        throw RuntimeError(runtime::errDiskOrNetwork, "The JSON text can't be written.");
}

} // namespace tol::data::json
