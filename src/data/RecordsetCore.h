// SPDX-License-Identifier: MIT
#pragma once

#include "data/DatabaseCore.h"
#include "data/rows/Cursor.h"
#include "runtime/RuntimeError.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tol::data {

/// State behind Recordset: the cursor, where it stands, and the copy buffer. It holds its table in use
/// until it is closed. Its fields are numbered as they stood when it was opened, since nobody can
/// change them meanwhile. The path of a step, of reading and of changing a value allocates nothing of
/// its own.
class RecordsetCore {
  public:
    /// Opens on the first record; 3078 for an unknown table.
    RecordsetCore(std::shared_ptr<DatabaseCore> database, const std::string& table);
    RecordsetCore(const RecordsetCore&) = delete;
    RecordsetCore& operator=(const RecordsetCore&) = delete;

    [[nodiscard]] bool isOpen() const { return m_cursor != nullptr; }
    /// Flushes the store, then gives up the table. Does nothing when closed.
    void close();

    /// The table with its fields; 3420 once closed.
    [[nodiscard]] const TableDefinition& definition() const;
    [[nodiscard]] std::string fileName() const;
    [[nodiscard]] const FieldDef& field(std::size_t position) const { return definition().fields[position]; }
    /// The field with the properties that may have changed since.
    [[nodiscard]] FieldDef currentDefinition(std::size_t field) const;
    /// Changes the table, whose only user this must be: a field's ordinal or zero-length rule.
    void alter(const TableChange& change);

    [[nodiscard]] std::int64_t recordCount() const;
    [[nodiscard]] bool isEmpty() const;
    [[nodiscard]] std::uint64_t changes() const { return cursor().changes(); }
    void setCacheSize(std::size_t records) { cursor().setCacheSize(records); }
    [[nodiscard]] bool atBOF() const { return isOff(Place::BeforeFirst); }
    [[nodiscard]] bool atEOF() const { return isOff(Place::BehindLast); }
    [[nodiscard]] bool noMatch() const;

    void setIndex(const std::string& name);
    [[nodiscard]] const std::string& index() const;
    void moveFirst();
    void moveLast();
    void moveNext();
    void movePrevious();
    [[nodiscard]] std::string bookmark() const;
    void setBookmark(std::string_view mark);
    void seek(std::string_view comparison, std::span<const runtime::Value> keys);

    [[nodiscard]] runtime::Value value(std::size_t field) const;
    void setValue(std::size_t field, const runtime::Value& value);
    void addNew();
    void edit();
    void update();
    void cancelUpdate();
    void remove();
    [[nodiscard]] const std::string& lastModified() const;

  private:
    enum class Place : std::uint8_t {
        OnRecord,
        BehindDeleted, ///< on no record, but with neighbours to step to
        BeforeFirst,
        BehindLast,
        OffBothEnds, ///< found the table empty
        Nowhere,     ///< after a search that found nothing
    };
    enum class Buffer : std::uint8_t { None, Adding, Editing };

    static constexpr std::uint16_t unassigned = 0xffff;

    void requireOpen() const {
        if (!m_cursor)
            runtime::raise(runtime::errObjectInvalid);
    }
    [[nodiscard]] Cursor& cursor() const {
        requireOpen();
        return *m_cursor;
    }
    [[nodiscard]] bool isOff(Place end) const;
    void requireRecord() const;
    void requireRow() const;
    void requireStep() const;
    void leave();
    void stand(bool onRecord, Place otherwise) { m_place = onRecord ? Place::OnRecord : otherwise; }
    void moveToEnd(bool (Cursor::*end)());

    [[nodiscard]] const Assignment* assigned(std::size_t field) const;
    void openBuffer(Buffer kind);
    void dropBuffer();
    void checkBuffer() const;
    [[nodiscard]] bool willBeNull(std::size_t field) const;
    [[nodiscard]] bool allowsZeroLength(std::size_t field);
    void findKeyFields();
    void findRequired();

    std::shared_ptr<DatabaseCore> m_database;
    std::unique_ptr<TableUse> m_use;
    std::shared_ptr<const TableDefinition> m_definition;
    std::unique_ptr<Cursor> m_cursor;
    std::string m_index;
    std::vector<std::size_t> m_keyFields;
    std::vector<runtime::Value> m_keys; ///< of the search in work
    Place m_place = Place::OffBothEnds;
    Buffer m_buffer = Buffer::None;
    bool m_noMatch = false;
    std::vector<Assignment> m_assignments;
    std::vector<std::uint16_t> m_slots; ///< for each field its place in m_assignments, or `unassigned`
    std::vector<std::size_t> m_required;
    std::size_t m_probe = 0; ///< the field that is cheapest to read
    std::vector<bool> m_allowsZeroLength;
    std::shared_ptr<const Catalogue> m_rulesOf; ///< from which m_allowsZeroLength was taken
    std::string m_lastModified;
};

} // namespace tol::data
