// SPDX-License-Identifier: MIT
#include "data/RecordsetCore.h"

#include "data/FieldValue.h"
#include "data/writes/WriteClock.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

#include <algorithm>
#include <utility>

namespace tol::data {
namespace {

using runtime::Value;

/// Texts and bytes have to be copied to be read; any other field tells as well whether a row is there.
std::size_t cheapestField(const TableDefinition& table) {
    const auto isCheap = [](const FieldDef& field) {
        return field.type != dbText && field.type != dbMemo && field.type != dbLongBinary &&
               field.type != dbGUID;
    };
    const auto found = std::find_if(table.fields.begin(), table.fields.end(), isCheap);
    return found == table.fields.end() ? 0 : static_cast<std::size_t>(found - table.fields.begin());
}

SeekOperator seekOperator(std::string_view comparison) {
    if (comparison == "=")
        return SeekOperator::Equal;
    if (comparison == ">=")
        return SeekOperator::GreaterOrEqual;
    if (comparison == "<=")
        return SeekOperator::LessOrEqual;
    runtime::raise(runtime::errInvalidArgument);
}

} // namespace

RecordsetCore::RecordsetCore(std::shared_ptr<DatabaseCore> database, const std::string& table)
    : m_database(std::move(database)) {
    Store& store = m_database->store();
    store.refresh();
    if (!store.definition(table))
        runtime::raise(runtime::errTableNotFound, {table});
    m_use = store.useTable(table);
    // Until the table was in use another process could change it.
    store.refresh();
    m_definition = store.definition(table);
    if (!m_definition)
        runtime::raise(runtime::errTableNotFound, {table});
    m_slots.assign(m_definition->fields.size(), unassigned);
    m_probe = cheapestField(*m_definition);
    findRequired();
    m_cursor = openCursor(store, m_definition->name);
    m_cursor->setIndex("");
    stand(m_cursor->first(), Place::OffBothEnds);
}

void RecordsetCore::close() {
    if (!isOpen())
        return;
    m_cursor.reset();
    // What was written must be in the file before others may take the table; so the use ends last.
    const auto use = std::move(m_use);
    const auto database = std::move(m_database);
    if (!WriteClock::instance().inBatch())
        database->store().flush();
}

const TableDefinition& RecordsetCore::definition() const {
    requireOpen();
    return *m_definition;
}

std::string RecordsetCore::fileName() const {
    requireOpen();
    return m_database->store().path().native();
}

FieldDef RecordsetCore::currentDefinition(std::size_t field) const {
    const FieldDef& opened = this->field(field);
    const auto table = m_database->store().definition(m_definition->name);
    const int position = table ? table->findField(opened.name) : -1;
    return position < 0 ? opened : table->fields[static_cast<std::size_t>(position)];
}

void RecordsetCore::alter(const TableChange& change) {
    m_database->alter(definition().name, change, m_use.get());
}

std::int64_t RecordsetCore::recordCount() const {
    return cursor().count();
}

bool RecordsetCore::isEmpty() const {
    return cursor().isEmpty();
}

bool RecordsetCore::noMatch() const {
    requireOpen();
    return m_noMatch;
}

bool RecordsetCore::isOff(Place end) const {
    Cursor& rows = cursor();
    return m_place == end || m_place == Place::OffBothEnds || rows.isEmpty();
}

void RecordsetCore::setIndex(const std::string& name) {
    Cursor& rows = cursor();
    std::string exact;
    if (!name.empty()) {
        const int position = m_definition->findIndex(name);
        if (position < 0)
            runtime::raise(runtime::errNotAnIndex, {name});
        exact = m_definition->indexes[static_cast<std::size_t>(position)].name;
    }
    leave();
    rows.setIndex(exact);
    m_index = std::move(exact);
    findKeyFields();
    stand(rows.first(), Place::OffBothEnds);
}

const std::string& RecordsetCore::index() const {
    requireOpen();
    return m_index;
}

void RecordsetCore::moveFirst() {
    moveToEnd(&Cursor::first);
}

void RecordsetCore::moveLast() {
    moveToEnd(&Cursor::last);
}

void RecordsetCore::moveToEnd(bool (Cursor::*end)()) {
    Cursor& rows = cursor();
    leave();
    stand((rows.*end)(), Place::OffBothEnds);
    requireRecord();
}

void RecordsetCore::moveNext() {
    Cursor& rows = cursor();
    requireStep();
    dropBuffer();
    stand(rows.next(), Place::BehindLast);
}

void RecordsetCore::movePrevious() {
    Cursor& rows = cursor();
    requireStep();
    dropBuffer();
    stand(rows.previous(), Place::BeforeFirst);
}

std::string RecordsetCore::bookmark() const {
    Cursor& rows = cursor();
    requireRecord();
    return rows.bookmark();
}

void RecordsetCore::setBookmark(std::string_view mark) {
    Cursor& rows = cursor();
    if (runtime::trim(mark).empty())
        runtime::raise(runtime::errInvalidBookmark);
    leave();
    stand(rows.seekBookmark(mark), Place::Nowhere);
    if (m_place == Place::Nowhere)
        runtime::raise(runtime::errRecordDeleted);
}

void RecordsetCore::seek(std::string_view comparison, std::span<const Value> keys) {
    Cursor& rows = cursor();
    if (m_index.empty())
        runtime::raise(runtime::errNoCurrentIndex);
    const SeekOperator op = seekOperator(comparison);
    if (keys.empty() || keys.size() > m_keyFields.size())
        runtime::raise(runtime::errInvalidArgument);
    m_keys.clear();
    for (std::size_t i = 0; i < keys.size(); ++i)
        m_keys.push_back(toFieldType(m_definition->fields[m_keyFields[i]].type, keys[i]));
    leave();
    stand(rows.seek(op, m_keys), Place::Nowhere);
    m_noMatch = m_place == Place::Nowhere;
}

Value RecordsetCore::value(std::size_t field) const {
    Cursor& rows = cursor();
    if (m_buffer != Buffer::None) {
        if (const Assignment* assignment = assigned(field))
            return assignment->value;
        if (m_buffer == Buffer::Adding)
            return runtime::Null{};
    }
    requireRecord();
    return rows.value(field);
}

void RecordsetCore::setValue(std::size_t field, const Value& value) {
    const FieldDef& definition = this->field(field);
    if (m_buffer == Buffer::None)
        runtime::raise(runtime::errNoCopyBuffer);
    const bool asFound = m_database->acceptsAsFound() && hasOwnType(definition.type, value);
    Value converted = asFound ? value : toFieldType(definition.type, value);
    requireFits(definition, converted);
    if (converted.is<std::string>() && converted.get<std::string>().empty() && !allowsZeroLength(field))
        runtime::raise(runtime::errZeroLength, {definition.name});
    if (m_slots[field] != unassigned) {
        m_assignments[m_slots[field]].value = std::move(converted);
        return;
    }
    m_slots[field] = static_cast<std::uint16_t>(m_assignments.size());
    m_assignments.push_back({field, std::move(converted)});
}

void RecordsetCore::addNew() {
    openBuffer(Buffer::Adding);
}

void RecordsetCore::edit() {
    requireOpen();
    requireRecord();
    requireRow();
    openBuffer(Buffer::Editing);
}

void RecordsetCore::update() {
    Cursor& rows = cursor();
    if (m_buffer == Buffer::None)
        runtime::raise(runtime::errNoCopyBuffer);
    m_database->requireWritable();
    checkBuffer();
    if (m_buffer == Buffer::Adding) {
        m_lastModified = rows.insert(m_assignments);
    } else {
        if (!m_assignments.empty())
            rows.update(m_assignments);
        m_lastModified = rows.bookmark();
    }
    dropBuffer();
}

void RecordsetCore::cancelUpdate() {
    requireOpen();
    if (m_buffer == Buffer::None)
        runtime::raise(runtime::errNoCopyBuffer);
    dropBuffer();
}

void RecordsetCore::remove() {
    Cursor& rows = cursor();
    requireRecord();
    m_database->requireWritable();
    dropBuffer();
    rows.remove();
    m_place = Place::BehindDeleted;
}

const std::string& RecordsetCore::lastModified() const {
    requireOpen();
    if (m_lastModified.empty())
        runtime::raise(runtime::errNoCurrentRecord);
    return m_lastModified;
}

void RecordsetCore::requireRecord() const {
    if (m_place != Place::OnRecord)
        runtime::raise(runtime::errNoCurrentRecord);
}

/// Raises 3167 when another has deleted the row. A value that can't be read as its type is no concern
/// here: it may be about to be replaced.
void RecordsetCore::requireRow() const {
    if (m_definition->fields.empty())
        return;
    try {
        m_cursor->value(m_probe);
    } catch (const runtime::RuntimeError& error) {
        if (error.number() != runtime::errDataConversion)
            throw;
    }
}

void RecordsetCore::requireStep() const {
    if (m_place != Place::OnRecord && m_place != Place::BehindDeleted)
        runtime::raise(runtime::errNoCurrentRecord);
}

/// Before a jump: the buffer is dropped, and a jump that fails leaves no current record.
void RecordsetCore::leave() {
    dropBuffer();
    m_place = Place::Nowhere;
}

const Assignment* RecordsetCore::assigned(std::size_t field) const {
    return m_slots[field] == unassigned ? nullptr : &m_assignments[m_slots[field]];
}

void RecordsetCore::openBuffer(Buffer kind) {
    requireOpen();
    m_database->requireWritable();
    dropBuffer();
    m_buffer = kind;
}

void RecordsetCore::dropBuffer() {
    if (m_buffer == Buffer::None)
        return;
    for (const Assignment& assignment : m_assignments)
        m_slots[assignment.field] = unassigned;
    m_assignments.clear();
    m_buffer = Buffer::None;
}

void RecordsetCore::checkBuffer() const {
    for (const std::size_t field : m_required) {
        if (willBeNull(field))
            runtime::raise(runtime::errValueRequired, {m_definition->fields[field].name});
    }
}

/// A field that is not assigned to is Null in a new record, and stays as it is in an edited one.
bool RecordsetCore::willBeNull(std::size_t field) const {
    const Assignment* assignment = assigned(field);
    return assignment != nullptr ? assignment->value.isNull() : m_buffer == Buffer::Adding;
}

bool RecordsetCore::allowsZeroLength(std::size_t field) {
    if (const auto catalogue = m_database->store().catalogue(); m_rulesOf != catalogue) {
        m_allowsZeroLength.clear();
        for (std::size_t i = 0; i < m_definition->fields.size(); ++i)
            m_allowsZeroLength.push_back(currentDefinition(i).allowZeroLength);
        m_rulesOf = catalogue;
    }
    const FieldType type = m_definition->fields[field].type;
    return type == dbGUID || m_allowsZeroLength[field];
}

void RecordsetCore::findKeyFields() {
    m_keyFields.clear();
    const int position = m_index.empty() ? -1 : m_definition->findIndex(m_index);
    if (position < 0)
        return;
    for (const std::string& name : m_definition->indexes[static_cast<std::size_t>(position)].fields)
        m_keyFields.push_back(static_cast<std::size_t>(m_definition->findField(name)));
}

void RecordsetCore::findRequired() {
    for (std::size_t i = 0; i < m_definition->fields.size(); ++i) {
        if (m_definition->fields[i].required)
            m_required.push_back(i);
    }
}

} // namespace tol::data
