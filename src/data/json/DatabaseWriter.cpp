// SPDX-License-Identifier: MIT
#include "data/FieldValue.h"
#include "data/engine/FileError.h"
#include "data/engine/TableChange.h"
#include "data/json/DatabaseJson.h"
#include "data/json/JsonText.h"
#include "data/json/JsonValue.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <unordered_set>
#include <vector>

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
        throw atPlace(place(), error);
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

/// A unique index of another maker and the keys that have been written, as hashes: two keys that differ in
/// case alone, say, may be one key to a load.
class ForeignKeys {
  public:
    ForeignKeys(const TableDefinition& table, const IndexDef& index) : m_index(&index) {
        for (const std::string& field : index.fields)
            m_fields.push_back(static_cast<std::size_t>(table.findField(field)));
    }

    [[nodiscard]] bool doubted() const { return m_doubted; }
    /// Raises 3022 when a row that came before has this row's key.
    void add(const std::vector<runtime::Value>& row) {
        std::string key;
        for (const std::size_t field : m_fields) {
            const runtime::Value& value = row[field];
            if (value.isNull())
                return; // no key at all
            appendValue(key, value.is<std::string>() ? runtime::foldCase(value.get<std::string>()) : value);
        }
        m_doubted = !m_keys.insert(std::hash<std::string>()(key)).second;
        if (m_doubted)
            runtime::raise(runtime::errDuplicateKey, {m_index->name});
    }

  private:
    const IndexDef* m_index;
    std::vector<std::size_t> m_fields;
    std::unordered_set<std::size_t> m_keys;
    bool m_doubted = false;
};

/// Holds one row of the text at a time.
class DatabaseWriter {
  public:
    DatabaseWriter(Database& database, std::ostream& out, const WriteOptions& options)
        : m_database(database), m_out(out), m_options(options) {}

    void write();

  private:
    void writeTables();
    void writeTable(const TableDefinition& table);
    void writeRows(const TableDefinition& table);
    void appendRow(const TableDefinition& table, const std::vector<Field>& fields);
    void checkKeys(const TableDefinition& table, const std::vector<runtime::Value>& row);
    /// Runs a check of what a load would say, and complains of its error at that place.
    template <typename Place, typename Check>
    bool passes(const Place& place, Check&& check);
    /// Passes the text that was put together on to the stream; 3043 when the stream fails.
    void flush();

    Database& m_database;
    std::ostream& m_out;
    const WriteOptions& m_options;
    std::string m_text;
    std::int64_t m_row = 0;
    std::vector<bool> m_told; ///< of which fields a value was complained of
    std::vector<ForeignKeys> m_keys;
};

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
               TableDefinition made;
               apply(made, CreateTable{table}, true);
           });
    m_text += "{\"name\": ";
    appendName(m_text, table.name);
    m_text += ",\n  \"fields\": ";
    appendLines(m_text, table.fields, appendField);
    m_text += ",\n  \"indexes\": ";
    appendLines(m_text, table.indexes, appendIndex);
    if (table.withoutRowKeys)
        m_text += ",\n  \"withoutRowKeys\": true";
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
    m_keys.clear();
    for (const IndexDef& index : table.indexes)
        if (index.unique && index.foreign)
            m_keys.emplace_back(table, index);

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
    std::vector<runtime::Value> row;
    for (std::size_t at = 0; at < fields.size(); ++at) {
        const FieldDef& field = table.fields[at];
        const auto place = [&] {
            return fmt::format("Table \"{}\", row {}, field \"{}\"", table.name, m_row, field.name);
        };
        const runtime::Value& value = row.emplace_back(valueOf(fields[at], place));
        if (!m_told[at])
            m_told[at] = !passes(place, [&] { requireLoadable(table, field, value); });
        m_text += at == 0 ? "" : ", ";
        appendValue(m_text, value);
    }
    m_text += ']';
    checkKeys(table, row);
}

// The first key of an index that is there twice is told, and then no more of that index.
void DatabaseWriter::checkKeys(const TableDefinition& table, const std::vector<runtime::Value>& row) {
    const auto place = [&] { return fmt::format("Table \"{}\", row {}", table.name, m_row); };
    for (ForeignKeys& keys : m_keys)
        passes(place, [&] { keys.add(row); });
    std::erase_if(m_keys, [](const ForeignKeys& keys) { return keys.doubted(); });
}

template <typename Place, typename Check>
bool DatabaseWriter::passes(const Place& place, Check&& check) {
    try {
        check();
        return true;
    } catch (const RuntimeError& error) {
        const RuntimeError told = atPlace(place(), error);
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

} // namespace

void writeDatabase(Database& database, std::ostream& out, const WriteOptions& options) {
    DatabaseWriter(database, out, options).write();
}

} // namespace tol::data::json
