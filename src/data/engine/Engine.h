// SPDX-License-Identifier: MIT
#pragma once

#include "data/engine/RowSource.h"
#include "data/engine/SchemaNote.h"
#include "data/engine/TableChange.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace tol::data {

/// What a storage engine gives to the database interface. The interface above does all that does not
/// depend on where the bytes lie: current record, BOF and EOF, copy buffer, conversions to a field's
/// type, size and zero-length rules. Every member may raise RuntimeError.

/// One open database file. A process has one Store for a file, however many handles use it.
/// Table, field and index names are found without regard to case.
class Store {
  public:
    virtual ~Store() = default;

    [[nodiscard]] virtual const std::filesystem::path& path() const = 0;

    /// Looks whether another process has changed the definitions, and reads them again if so.
    virtual void refresh() = 0;
    /// The tables, without the engine's own, as they were when they were last read or changed.
    virtual std::shared_ptr<const Catalogue> catalogue() = 0;
    /// One of them, null when there is no such table.
    std::shared_ptr<const TableDefinition> definition(std::string_view table) {
        return catalogue()->find(table);
    }

    /// Changes the table's definition as apply() does, whatever the new names. Takes the table exclusively:
    /// 3211 when anyone has it open. `own` is a use of the table that is the caller's and so not in his way,
    /// or null. An ordinal or a zero-length rule that holds already is not written and needs no exclusive
    /// use. Further 3010 for a name in use, 3078 for an unknown table, 3022 and 3058 when the rows do not fit
    /// a new index.
    virtual void alter(std::string_view table, const TableChange& change, const TableUse* own = nullptr) = 0;
    /// What changes of definitions since the last call could not keep of what other programs had declared. A
    /// part that came back with its field is not among them.
    virtual SchemaNotes takeNotes() { return {}; }
    /// Whether changes of rows set off the triggers that other programs put into the file; true at first.
    virtual void letTriggersFire(bool /*fire*/) {}

    /// Marks the table as open, shared; 3211 when another holds it exclusively.
    virtual std::unique_ptr<TableUse> useTable(std::string_view table) = 0;
    /// Reads and writes its rows. 3251 for a table of another maker whose rows have no key of 64 bits.
    virtual std::unique_ptr<RowSource> openRows(std::string_view table) = 0;

    /// A transaction asked for by the caller: takes the write lock at once. Outside of one, a lone
    /// write commits at once and a run of writes by the clock, every 50 ms; flush() commits what waits, and
    /// leaves a transaction that was asked for alone.
    virtual void begin() = 0;
    virtual void commit() = 0;
    virtual void rollback() = 0;
    virtual void flush() = 0;
    /// Begins a batch, or ends it: until then changes of all files are held longer, closes and transactions
    /// of the caller's leave them to the clock, and those of this file are stored before any other's.
    virtual void leadBatch(bool /*lead*/) {}
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
