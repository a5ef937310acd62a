// SPDX-License-Identifier: MIT
#pragma once

#include "data/Constants.h"
#include "data/Field.h"

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace tol::data {

/// The fields of a recordset, by name (case does not matter) or by position from 0; 3265 otherwise.
class RecordsetFields {
  public:
    explicit RecordsetFields(std::shared_ptr<RecordsetCore> core) : m_core(std::move(core)) {}
    [[nodiscard]] int Count() const;
    Field operator()(std::string_view name) const;
    Field operator()(int position) const;

  private:
    std::shared_ptr<RecordsetCore> m_core;
};

/// A table opened for reading and writing, in stored order until Index is set. The table counts as in
/// use, shared, until Close or destruction. A default-made recordset stands for none (91).
/// It opens on its first record. Bookmarks are texts that are never blank, stay with the row for ever
/// and may be used in every recordset of the same table.
class Recordset {
  public:
    Recordset() = default;
    Recordset(Recordset&&) noexcept = default;
    Recordset& operator=(Recordset&& other) noexcept;
    ~Recordset();
    explicit Recordset(std::shared_ptr<RecordsetCore> core);

    [[nodiscard]] bool isOpen() const;
    [[nodiscard]] std::string Name() const;
    /// The file in which the table is, as a host path.
    [[nodiscard]] std::string FileName() const;
    void Close();

    [[nodiscard]] RecordsetFields Fields() const;
    [[nodiscard]] Field Fields(std::string_view name) const { return Fields()(name); }
    [[nodiscard]] Field Fields(int position) const { return Fields()(position); }

    [[nodiscard]] std::int64_t RecordCount() const;
    /// Whether the table has no record. Cheap enough to be asked at every key and in every walk; a change by
    /// another process may be noticed a millisecond late.
    [[nodiscard]] bool IsEmpty() const;
    /// Grows with each change of the table's records, by whomever; as cheap, and as late.
    [[nodiscard]] std::uint64_t Changes() const;
    /// How many records are read at once from where Seek or a bookmark leads; 1 at first. More is quicker for
    /// who goes on from there.
    void CacheSize(int records);
    [[nodiscard]] bool AtBOF() const;
    [[nodiscard]] bool AtEOF() const;
    [[nodiscard]] bool NoMatch() const;

    /// Sets the order and goes to the first record in it; 3015 when the table has no such index.
    void Index(const std::string& name);
    [[nodiscard]] std::string Index() const;

    /// 3021 on an empty table.
    void MoveFirst();
    void MoveLast();
    /// Off either end they leave the recordset at EOF or BOF; a step from there is error 3021.
    void MoveNext();
    void MovePrevious();

    /// 3021 with no current record. Setting a bookmark whose row is gone raises 3167, a text that is
    /// no bookmark 3159.
    [[nodiscard]] std::string Bookmark() const;
    void Bookmark(std::string_view mark);

    /// Compares with "=", ">=" or "<=", which finds the last record at or before the keys; up to one key
    /// for each field of the index, fewer are allowed. 3019
    /// without an index, 3001 for another comparison or too many keys. A miss sets NoMatch and leaves no
    /// current record.
    void Seek(std::string_view comparison, std::initializer_list<runtime::Value> keys);
    void Seek(std::string_view comparison, std::span<const runtime::Value> keys);

    /// Open the copy buffer; a move drops it, and so does a second AddNew or Edit. Edit: 3021, 3167.
    void AddNew();
    void Edit();
    /// Writes the buffer: 3020 without one, 3022 for a duplicate key (the buffer then stays), 3314 for
    /// a missing required value. After AddNew the recordset stands where it stood before.
    void Update(int type = dbUpdateRegular, bool force = false);
    /// Drops the buffer.
    void CancelUpdate();
    /// Deletes the current record; there is no current record afterwards, but MoveNext and
    /// MovePrevious go to its neighbours.
    void Delete();
    /// Bookmark of the record added or changed last; 3021 when there is none.
    [[nodiscard]] std::string LastModified() const;

  private:
    [[nodiscard]] RecordsetCore& core() const;
    std::shared_ptr<RecordsetCore> m_core;
};

} // namespace tol::data
