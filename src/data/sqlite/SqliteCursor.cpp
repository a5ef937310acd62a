// SPDX-License-Identifier: MIT
#include "data/sqlite/SqliteCursor.h"

#include "data/FileError.h"
#include "data/sqlite/BatchSearch.h"
#include "data/sqlite/Sql.h"
#include "runtime/RuntimeError.h"

#include <algorithm>
#include <limits>

namespace tol::data::sqlite {
namespace {

constexpr std::size_t firstLimit = 4;
constexpr std::size_t growth = 4;
constexpr std::size_t lastLimit = 1024;
constexpr std::size_t batchTextBytes = std::size_t{1} << 20;
constexpr std::size_t patchedTextBytes = 4 * batchTextBytes;
/// After so many batches it is known which fields the caller reads.
constexpr int loadsOfAllFields = 8;
/// After so many reads without a change in between, a small table is worth reading as a whole.
constexpr int loadsOfParts = 4;
/// Far below loadsOfParts, until the table is changed.
constexpr int tooLarge = std::numeric_limits<int>::min();

} // namespace

SqliteCursor::SqliteCursor(std::shared_ptr<Session> session, std::shared_ptr<TableState> state)
    : m_session(std::move(session)),
      m_state(std::move(state)),
      m_table(m_state->table),
      m_writer(*m_session, *m_state),
      m_order(*m_table, KeyOrder::storedOrder),
      m_touched(m_table->columns.size()) {
    chooseColumns(true);
}

// ---------------------------------------------------------------- where it stands

void SqliteCursor::enter() {
    m_session->enter();
    if (generation() != m_seen)
        dropBatch();
}

void SqliteCursor::dropBatch() {
    if (m_onRow)
        keepPosition();
    m_live = false;
    m_limit = firstLimit;
    m_quietLoads = 0;
    m_seen = generation();
}

void SqliteCursor::keepPosition() {
    if (m_positionKept || !m_live)
        return;
    m_position.resize(m_order.terms());
    for (std::size_t term = 0; term < m_order.terms(); ++term)
        m_position[term] = m_batch.at(m_row, columnOf(m_order.slot(term)));
    m_key.clear();
    for (const auto& part : key())
        m_key.emplace_back(part);
    m_positionKept = true;
}

std::span<const StoredValue> SqliteCursor::key() const {
    if (m_live && !m_positionKept)
        return keyInBatch(m_row);
    m_keyValues.clear();
    for (const auto& part : m_key)
        m_keyValues.push_back(part.value());
    return m_keyValues;
}

std::span<const StoredValue> SqliteCursor::keyInBatch(std::size_t row) const {
    m_keyValues.clear();
    for (std::size_t part = 0; part < m_table->rowKey.size(); ++part)
        m_keyValues.push_back(m_batch.at(row, part));
    return m_keyValues;
}

void SqliteCursor::needRow() {
    if (!m_onRow)
        runtime::raise(runtime::errNoCurrentRecord);
    if (m_gone)
        runtime::raise(runtime::errRecordDeleted);
}

/// The current row's values, read again if the batch was dropped.
void SqliteCursor::needBatch() {
    needRow();
    if (!m_live)
        fetchByKey();
    else if (m_rowIsOld)
        readAgain();
    if (!m_live) {
        m_gone = true;
        runtime::raise(runtime::errRecordDeleted);
    }
}

std::string SqliteCursor::bookmark() const {
    if (!m_onRow)
        runtime::raise(runtime::errNoCurrentRecord);
    return bookmarkOf(key());
}

runtime::Value SqliteCursor::value(std::size_t field) {
    enter();
    needBatch();
    if (m_columnOf[field] == notLoaded) {
        m_touched[field] = true;
        chooseColumns(false);
        needBatch();
    }
    m_touched[field] = true;
    return fromStored(m_batch.at(m_row, m_columnOf[field]), m_table->definition.fields[field].type,
                      m_table->columns[field].storage);
}

std::int64_t SqliteCursor::count() {
    m_session->enter(Session::Look::AtOnce); // who counts wants to know it now
    if (!m_state->count || m_state->countedAt != m_session->others()) {
        m_state->countedAt = m_session->others();
        m_state->count =
            m_session->connection().number("SELECT count(*) FROM " + quotedName(m_table->sqlName));
    }
    return *m_state->count;
}

/// Where the current row is known to be there, nobody else is asked.
bool SqliteCursor::isEmpty() {
    enter();
    if (m_live && !m_gone)
        return false;
    return m_session->connection().number("SELECT NOT EXISTS (SELECT 1 FROM " + quotedName(m_table->sqlName) +
                                          ")") != 0;
}

// ---------------------------------------------------------------- moving

void SqliteCursor::setIndex(const std::string& name) {
    m_session->enter();
    const int index = name.empty() ? KeyOrder::storedOrder : m_table->definition.findIndex(name);
    if (index < 0 && !name.empty())
        runtime::raise(runtime::errNotAnIndex, {name});
    m_onRow = false;
    if (index == m_index)
        return;
    m_index = index;
    m_order = KeyOrder(*m_table, index);
    chooseColumns(m_loads <= loadsOfAllFields);
}

/// An absolute move: what the walk before remembered counts no more.
void SqliteCursor::startWalk(std::size_t limit) {
    m_session->enter();
    m_onRow = false;
    m_live = false;
    m_limit = limit;
    m_moved.clear();
    m_ring.start();
    m_oneWay = false;
}

/// Whether the batch is still what the file holds, as one piece of the order.
bool SqliteCursor::isReusable() const {
    return m_live && m_batchDirection == Direction::Forward && !m_oneWay && m_moved.empty() &&
           m_seen == generation();
}

bool SqliteCursor::readsWhole() {
    if (m_quietLoads < loadsOfParts)
        return false;
    if (m_seen != generation()) {
        m_quietLoads = 0;
        return false;
    }
    const std::string rows = "SELECT 1 FROM " + quotedName(m_table->sqlName);
    const bool isSmall = m_session->connection().number("SELECT count(*) FROM (" + rows + " LIMIT " +
                                                        std::to_string(lastLimit) + ")") <
                         static_cast<std::int64_t>(lastLimit);
    if (!isSmall)
        m_quietLoads = tooLarge; // the question costs more than a search, so it is asked but once
    return isSmall;
}

bool SqliteCursor::standInBatch(std::size_t row) {
    m_walk = Direction::Forward;
    m_row = row;
    m_onRow = row < m_batch.rows();
    m_positionKept = false;
    m_rowIsOld = false;
    m_gone = false;
    return m_onRow;
}

bool SqliteCursor::first() {
    m_session->enter();
    if (isReusable() && m_fromStart)
        return standInBatch(0);
    startWalk(readsWhole() ? lastLimit : firstLimit);
    m_walk = Direction::Forward;
    return load({Level{}}, {}, Direction::Forward);
}

bool SqliteCursor::last() {
    startWalk(firstLimit);
    m_walk = Direction::Backward;
    return load({Level{}}, {}, Direction::Backward);
}

bool SqliteCursor::next() {
    return step(Direction::Forward);
}

bool SqliteCursor::previous() {
    return step(Direction::Backward);
}

bool SqliteCursor::step(Direction direction) {
    enter();
    if (!m_onRow)
        return false;
    if (direction != m_walk) {
        m_walk = direction;
        m_moved.clear();
        m_ring.start();
        if (m_oneWay)
            dropBatch();
    }
    if (stepInBatch(direction))
        return true;
    keepPosition();
    if (m_ring.wasThere(m_position))
        raiseDamaged();
    std::vector<StoredValue> position;
    std::vector<bool> isNull;
    for (const auto& part : m_position) {
        position.push_back(part.value());
        isNull.push_back(part.isNull());
    }
    return load(m_order.levelsBehind(isNull, direction), position, direction, Begin::Behind);
}

bool SqliteCursor::stepInBatch(Direction direction) {
    if (!m_live)
        return false;
    const bool along = direction == m_batchDirection;
    if (along ? m_row + 1 >= m_batch.rows() : m_row == 0)
        return false;
    m_row += along ? 1 : static_cast<std::size_t>(-1);
    m_positionKept = false;
    m_rowIsOld = false;
    m_gone = false;
    return true;
}

/// Nothing when the batch can't tell.
std::optional<bool> SqliteCursor::seekInBatch(SeekOperator op, std::span<const StoredValue> keys) {
    if (!isReusable() || !m_order.isOwnIndex())
        return std::nullopt;
    std::vector<std::size_t> columns;
    for (std::size_t key = 0; key < keys.size(); ++key)
        columns.push_back(columnOf(m_order.slot(key)));
    const BatchSearch search(m_batch, columns);
    const std::size_t row = search.lowerBound(keys);
    if ((row == 0 && !m_fromStart) || (row == m_batch.rows() && !m_toEnd))
        return std::nullopt;
    const bool found =
        row < m_batch.rows() && (op == SeekOperator::GreaterOrEqual || search.equals(row, keys));
    return standInBatch(found ? row : m_batch.rows());
}

bool SqliteCursor::seek(SeekOperator op, std::span<const runtime::Value> keys) {
    m_session->enter();
    std::vector<std::string> buffers(keys.size());
    std::vector<StoredValue> position;
    std::vector<bool> isNull;
    for (std::size_t key = 0; key < keys.size(); ++key) {
        const KeySlot& slot = m_order.slot(key);
        const auto storage = slot.inRowKey ? Storage::Native : m_table->columns[slot.position].storage;
        position.push_back(toStored(keys[key], storage, buffers[key]));
        isNull.push_back(position.back().isNull());
    }
    if (const auto found = seekInBatch(op, position))
        return *found;
    if (m_order.isOwnIndex() && readsWhole()) {
        startWalk(lastLimit);
        load({Level{}}, {}, Direction::Forward);
        if (const auto found = seekInBatch(op, position))
            return *found;
    }
    startWalk(1);
    m_walk = Direction::Forward;
    if (keys.empty() || op == SeekOperator::Equal)
        return load({Level{keys.size(), Level::Relation::None}}, position, Direction::Forward);
    return load(m_order.levelsFrom(isNull), position, Direction::Forward);
}

bool SqliteCursor::seekBookmark(std::string_view bookmark) {
    m_session->enter();
    if (m_onRow && !m_gone && isReusable() && this->bookmark() == bookmark)
        return standInBatch(m_row); // who has just found a row often goes to its bookmark
    RowKey key = keyOfBookmark(*m_table, bookmark);
    startWalk(1);
    m_key = std::move(key);
    m_seen = generation();
    m_gone = false;
    m_onRow = fetchByKey();
    m_positionKept = false;
    return m_onRow;
}

// ---------------------------------------------------------------- reading

std::size_t SqliteCursor::columnOf(const KeySlot& slot) const {
    return slot.inRowKey ? slot.position : m_columnOf[slot.position];
}

/// Makes the list of columns to read: the row key, the order's keys, and all fields or those that were
/// read before.
void SqliteCursor::chooseColumns(bool all) {
    if (m_onRow)
        keepPosition();
    m_live = false;
    m_fields.clear();
    m_columnOf.assign(m_table->columns.size(), notLoaded);
    for (std::size_t field = 0; field < m_columnOf.size(); ++field) {
        if (!all && !m_touched[field] && !m_order.usesField(field))
            continue;
        m_columnOf[field] = m_table->rowKey.size() + m_fields.size();
        m_fields.push_back(field);
    }
    m_levels.clear();
    m_byKey = Statement();
}

std::string SqliteCursor::columnList() const {
    std::string columns = rowKeyColumns(*m_table);
    for (const auto field : m_fields)
        columns += ", " + quotedName(m_table->columns[field].name);
    return columns;
}

/// Reads a batch out of the levels, in their order, and stands on its first row. Raises m_limit for
/// the next one.
bool SqliteCursor::load(const std::vector<Level>& levels, std::span<const StoredValue> position,
                        Direction direction, Begin begin) {
    if (++m_loads == loadsOfAllFields)
        chooseColumns(false);
    m_session->writeUpdates();
    m_live = false; // should reading fail, the position alone tells where the walk is
    m_seen = generation();
    m_batch.clear(m_table->rowKey.size() + m_fields.size());
    m_batchDirection = direction;
    m_row = 0;
    m_oneWay = false;
    std::optional<Session::Reading> reading;
    if (levels.size() > 1)
        reading.emplace(*m_session);
    for (const auto& level : levels) {
        loadLevel(level, position, direction, begin);
        if (batchIsFull())
            break;
    }
    const bool whole = levels.front().equalTerms == 0 && levels.front().relation == Level::Relation::None;
    m_fromStart = whole;
    m_toEnd = whole && !batchIsFull();
    ++m_quietLoads;
    m_limit = std::min(m_limit * growth, lastLimit);
    m_onRow = m_live = m_batch.rows() > 0;
    m_positionKept = false;
    m_rowIsOld = false;
    m_gone = false;
    return m_onRow;
}

void SqliteCursor::loadLevel(const Level& level, std::span<const StoredValue> position, Direction direction,
                             Begin begin) {
    Statement& statement = levelStatement(level, direction);
    const std::size_t values = level.equalTerms + (level.takesValue() ? 1 : 0);
    for (std::size_t term = 0; term < values; ++term)
        bindStored(statement, static_cast<int>(term) + 1, position[term]);
    while (!batchIsFull() && statement.step()) {
        m_batch.append(statement.handle());
        if (!getsAhead(position, begin)) {
            statement.reset();
            raiseDamaged();
        }
        if (!m_moved.empty() && wasMoved(m_batch.rows() - 1)) {
            m_batch.removeLast();
            m_oneWay = true;
        }
    }
    statement.reset();
}

/// Whether the last row that was read lies behind the one before it.
bool SqliteCursor::getsAhead(std::span<const StoredValue> position, Begin begin) const {
    const std::size_t last = m_batch.rows() - 1;
    if (last == 0 && begin == Begin::Anywhere)
        return true;
    const auto at = [&](std::size_t row, std::size_t term) {
        return m_batch.at(row, columnOf(m_order.slot(term)));
    };
    return m_order.mayFollow(
        [&](std::size_t term) { return last == 0 ? position[term] : at(last - 1, term); },
        [&](std::size_t term) { return at(last, term); }, m_batchDirection);
}

/// A walk that does not get ahead would never end.
void SqliteCursor::raiseDamaged() const {
    throw fileError(runtime::errCannotOpen, m_session->connection().file(),
                    "the rows of table " + m_table->sqlName + " do not lie in their order");
}

bool SqliteCursor::batchIsFull() const {
    return m_batch.rows() >= m_limit || m_batch.textBytes() >= batchTextBytes;
}

bool SqliteCursor::wasMoved(std::size_t row) const {
    return m_moved.contains(bookmarkOf(keyInBatch(row)));
}

Statement& SqliteCursor::levelStatement(const Level& level, Direction direction) {
    Statement& statement = m_levels[{direction, level.equalTerms, level.relation}];
    if (!statement.isPrepared())
        statement = Statement(m_session->connection(), m_order.query(columnList(), level, direction));
    return statement;
}

/// Makes the batch the one row of m_key; position and key stay as they are.
bool SqliteCursor::fetchByKey() {
    Statement& statement = statementByKey();
    m_batch.clear(m_table->rowKey.size() + m_fields.size());
    m_fromStart = m_toEnd = m_rowIsOld = false;
    m_row = 0;
    m_live = statement.step();
    if (m_live)
        m_batch.append(statement.handle());
    statement.reset();
    return m_live;
}

/// Reads the current row anew into the batch; position and key stay as they are.
void SqliteCursor::readAgain() {
    keepPosition();
    Statement& statement = statementByKey();
    m_rowIsOld = false;
    m_live = statement.step();
    if (m_live)
        m_batch.replaceRow(m_row, statement.handle());
    statement.reset();
}

/// Gives the row of m_key.
Statement& SqliteCursor::statementByKey() {
    m_session->writeUpdates();
    if (!m_byKey.isPrepared())
        m_byKey = Statement(m_session->connection(), "SELECT " + columnList() + " FROM " +
                                                         quotedName(m_table->sqlName) + " WHERE " +
                                                         rowKeyCondition(*m_table));
    bindRowKey(m_byKey, 1, valuesOf(m_key));
    return m_byKey;
}

// ---------------------------------------------------------------- writing

std::string SqliteCursor::insert(std::span<const Assignment> values) {
    enter();
    std::string bookmark = m_writer.insert(values);
    // A new row's key is greater than all before it, so it can't lie within a batch in stored order.
    if (m_table->own && m_order.keys() == 0)
        ++m_seen;
    return bookmark;
}

void SqliteCursor::update(std::span<const Assignment> values) {
    enter();
    needRow();
    const bool moves = movesRow(values);
    if (moves)
        keepPosition();
    const std::span<const StoredValue> row = key();
    if (!m_writer.update(row, values, m_live)) {
        m_gone = true;
        runtime::raise(runtime::errRecordDeleted);
    }
    ++m_seen;
    if (moves) {
        m_oneWay = true;
        m_moved.insert(bookmarkOf(row));
    }
    if (changesRowKey(values))
        followRowKey(values);
    else
        patchBatch(values);
}

/// Whether the update changes the current row's place in the order.
bool SqliteCursor::movesRow(std::span<const Assignment> values) {
    const auto isKey = [&](const Assignment& value) { return m_order.usesField(value.field); };
    if (std::none_of(values.begin(), values.end(), isKey))
        return false;
    needBatch();
    std::string buffer;
    return std::any_of(values.begin(), values.end(), [&](const Assignment& value) {
        return isKey(value) && toStored(value.value, m_table->columns[value.field].storage, buffer) !=
                                   m_batch.at(m_row, m_columnOf[value.field]);
    });
}

void SqliteCursor::patchBatch(std::span<const Assignment> values) {
    if (!m_live)
        return;
    // Columns of other makers may store a value in another form than it was given in: the row is read
    // again when it is asked for, and so is the batch when the walk turns back to it.
    const auto isOwn = [&](const Assignment& value) { return m_table->columns[value.field].own; };
    if (!std::all_of(values.begin(), values.end(), isOwn)) {
        m_rowIsOld = m_oneWay = true;
        return;
    }
    // Replaced texts take room until the batch goes.
    if (m_batch.textBytes() > patchedTextBytes) {
        keepPosition();
        m_live = false;
        return;
    }
    std::string buffer;
    for (const auto& value : values) {
        if (m_columnOf[value.field] != notLoaded)
            m_batch.replace(m_row, m_columnOf[value.field],
                            toStored(value.value, m_table->columns[value.field].storage, buffer));
    }
}

bool SqliteCursor::changesRowKey(std::span<const Assignment> values) const {
    return std::any_of(values.begin(), values.end(), [&](const Assignment& value) {
        const auto& key = m_table->rowKey;
        return std::find(key.begin(), key.end(), m_table->columns[value.field].name) != key.end();
    });
}

/// The current row goes by its new key; the walk goes on from the old place.
void SqliteCursor::followRowKey(std::span<const Assignment> values) {
    keepPosition();
    m_live = false;
    std::string buffer;
    for (const auto& value : values) {
        const auto& column = m_table->columns[value.field];
        const auto& names = m_table->rowKey;
        const auto part = std::find(names.begin(), names.end(), column.name);
        if (part != names.end())
            m_key[static_cast<std::size_t>(part - names.begin())] =
                toStored(value.value, column.storage, buffer);
    }
    m_moved.insert(bookmarkOf(valuesOf(m_key)));
}

void SqliteCursor::remove() {
    enter();
    needRow();
    const bool removed = m_writer.remove(key());
    m_gone = true;
    m_oneWay = true;
    if (!removed)
        runtime::raise(runtime::errRecordDeleted);
    ++m_seen;
}

} // namespace tol::data::sqlite
