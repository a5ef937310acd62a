// SPDX-License-Identifier: MIT
#pragma once

#include "data/Definition.h"
#include "data/SchemaNote.h"
#include "runtime/Value.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace tol::data {

/// What a storage engine gives to the database interface. The interface above does all that does not
/// depend on where the bytes lie: current record, BOF and EOF, copy buffer, conversions to a field's
/// type, size and zero-length rules. Every member may raise RuntimeError.

/// A field's new value: its position in TableDefinition::fields, and a value that already has the
/// field's own type (hasOwnType()) or is Null.
struct Assignment {
    std::size_t field;
    runtime::Value value;
};

enum class SeekOperator { Equal, GreaterOrEqual };

/// A walk over one table. It stands on a row or on none. A step continues from where the row stood
/// when it was reached, even if the row has been changed or deleted since; a row that update() moved
/// ahead in the order is not met a second time in the same walk, which ends with a step in the other
/// direction or a jump. Nothing is held open in the file between calls.
class Cursor {
  public:
    virtual ~Cursor() = default;

    /// Chooses the order: an index by name, or "" for the order of the row keys (stored order).
    /// Leaves the cursor on no row. Raises 3015 for an unknown index.
    virtual void setIndex(const std::string& name) = 0;

    /// Each returns whether the cursor now stands on a row.
    virtual bool first() = 0;
    virtual bool last() = 0;
    virtual bool next() = 0;
    virtual bool previous() = 0;
    /// Finds the first row whose leading key fields equal the keys, or come at or after them. There may
    /// be fewer keys than the index has fields. The keys have the types of their fields.
    virtual bool seek(SeekOperator op, std::span<const runtime::Value> keys) = 0;
    /// Goes to the row of that bookmark; false when there is no such row (any more). 3159 for a text that
    /// no bookmark of this table can be.
    virtual bool seekBookmark(std::string_view bookmark) = 0;

    /// The current row's bookmark: a text that is never blank and names the row for ever.
    virtual std::string bookmark() const = 0;
    /// The current row's value, in the field's own type or Null. Raises 3167 when the row is gone.
    virtual runtime::Value value(std::size_t field) = 0;

    /// Adds a row and returns its bookmark; the cursor stays where it is. 3022 for a duplicate key and
    /// 3058 for a Null in the primary key, unless the storage fills it in; both name the index.
    virtual std::string insert(std::span<const Assignment> values) = 0;
    /// Changes, or deletes, the current row; the cursor keeps its place. 3022 and 3058 as above, 3167 when
    /// the row is gone.
    virtual void update(std::span<const Assignment> values) = 0;
    virtual void remove() = 0;

    /// The exact number of rows of the table.
    virtual std::int64_t count() = 0;
    /// Whether it has none. Cheap enough to be asked for every row; a change by another process may be
    /// noticed a millisecond late.
    virtual bool isEmpty() = 0;
};

/// A hold on a table, given up when it is destroyed.
class TableUse {
  public:
    virtual ~TableUse() = default;
};

/// One open database file. A process has one Store for a file, however many handles use it.
/// Table, field and index names are found without regard to case.
class Store {
  public:
    virtual ~Store() = default;

    [[nodiscard]] virtual const std::filesystem::path& path() const = 0;

    // Catalogue. Engine-own tables are not told.
    /// Looks whether another process has changed the definitions, and reads them again if so.
    virtual void refresh() = 0;
    /// All tables by name order; and one definition, null when there is no such table. The pointer
    /// stays valid, with the state it had, after later changes.
    virtual std::vector<std::string> tableNames() = 0;
    virtual std::shared_ptr<const TableDefinition> definition(std::string_view table) = 0;

    // Schema steps. Each takes its table exclusively and raises 3211 when anyone has it open.
    virtual void createTable(const TableDefinition& table) = 0;
    virtual void dropTable(std::string_view table) = 0;
    virtual void renameTable(std::string_view table, const std::string& newName) = 0;
    virtual void addField(std::string_view table, const FieldDef& field) = 0;
    virtual void dropField(std::string_view table, std::string_view field) = 0;
    virtual void renameField(std::string_view table, std::string_view field, const std::string& newName) = 0;
    virtual void createIndex(std::string_view table, const IndexDef& index) = 0;
    virtual void dropIndex(std::string_view table, std::string_view index) = 0;
    /// Catalogue entries that change no row. A value that holds already is not written and needs no
    /// exclusive use. `own` is a use of the table that is the caller's and so not in his way, or null.
    virtual void setOrdinal(std::string_view table, std::string_view field, int ordinal,
                            const TableUse* own) = 0;
    virtual void setAllowZeroLength(std::string_view table, std::string_view field, bool allow,
                                    const TableUse* own) = 0;
    /// What the steps since the last call could not keep of what other programs had declared. A part that
    /// came back with its field is not told.
    virtual SchemaNotes takeNotes() { return {}; }
    /// Whether changes of rows set off the triggers that other programs put into the file; true at first.
    virtual void letTriggersFire(bool /*fire*/) {}

    /// Marks the table as open, shared; 3211 when another holds it exclusively.
    virtual std::unique_ptr<TableUse> useTable(std::string_view table) = 0;
    virtual std::unique_ptr<Cursor> openCursor(std::string_view table) = 0;

    /// A transaction asked for by the caller: takes the write lock at once. Outside of one, a lone
    /// write commits at once and a run of writes by the clock, every 50 ms; settle() commits what waits, and
    /// leaves a transaction that was asked for alone.
    virtual void begin() = 0;
    virtual void commit() = 0;
    virtual void rollback() = 0;
    virtual void settle() = 0;
    /// Raises what would keep any change from the file: 3027, 3051, 3218 and so on. Leaves it as it is.
    virtual void requireWritable() = 0;
};

/// A kind of storage.
class Engine {
  public:
    virtual ~Engine() = default;
    /// Whether the file's first bytes are this engine's. An empty or unreadable file is nobody's.
    [[nodiscard]] virtual bool recognises(std::string_view firstBytes) const = 0;
    virtual std::shared_ptr<Store> open(const std::filesystem::path& file, bool readOnly) = 0;
    /// Makes a new, empty database; the file must not exist.
    virtual std::shared_ptr<Store> create(const std::filesystem::path& file) = 0;
    /// Makes the file anew without the bytes of deleted fields and rows; bookmarks stay. It must not be
    /// open (3045). After an error it is what it was.
    virtual void compact(const std::filesystem::path& file) = 0;
};

} // namespace tol::data
