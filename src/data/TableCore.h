// SPDX-License-Identifier: MIT
#pragma once

#include "data/Definition.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace tol::data {

class DatabaseCore;

/// State behind TableDef: either a definition under construction, or a table of a database. All handles
/// on one table of a database share it, so that what one changes the others see at once. The checks
/// are the same for both; only then is the draft, or the database, changed.
class TableCore : public std::enable_shared_from_this<TableCore> {
  public:
    /// A definition under construction.
    explicit TableCore(std::string name, bool asFound = false);
    TableCore(std::shared_ptr<DatabaseCore> database, std::shared_ptr<const TableDefinition> definition);
    TableCore(const TableCore&) = delete;
    TableCore& operator=(const TableCore&) = delete;

    [[nodiscard]] bool isAppended() const { return m_database != nullptr; }
    [[nodiscard]] const std::string& name() const { return m_name; }
    /// As it is now; the reference holds until the next call. 3420 when the table is gone.
    [[nodiscard]] const TableDefinition& definition() const;
    /// The field of that name, looked for at `position` first; 3265 when there is none.
    [[nodiscard]] const FieldDef& field(std::string_view name, std::size_t position) const;

    /// Makes the table in the database; from then on this stands for it.
    void appendTo(const std::shared_ptr<DatabaseCore>& database);
    void rename(const std::string& newName);

    void addField(FieldDef field);
    void dropField(std::string_view name);
    void renameField(std::string_view name, const std::string& newName);
    void setOrdinal(std::string_view field, int ordinal);
    void setAllowZeroLength(std::string_view field, bool allow);

    void addIndex(const IndexDef& index);
    void dropIndex(std::string_view name);

  private:
    [[nodiscard]] bool acceptsAsFound() const;
    template <typename OnDraft, typename OnStore>
    void change(OnDraft&& onDraft, OnStore&& onStore);

    std::shared_ptr<DatabaseCore> m_database; ///< null for a draft
    std::string m_name;
    bool m_asFound = false; ///< of a draft; see DatabaseCore::acceptAsFound()
    TableDefinition m_draft;
    mutable std::shared_ptr<const TableDefinition> m_snapshot;
    mutable std::uint64_t m_seenVersion = 0;
};

} // namespace tol::data
