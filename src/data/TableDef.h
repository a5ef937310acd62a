// SPDX-License-Identifier: MIT
#pragma once

#include "data/Field.h"
#include "data/Index.h"

#include <memory>
#include <string>
#include <string_view>

namespace tol::data {

/// A table's definition: of a table of a database, where a change alters the table at once, or of one
/// under construction (CreateTableDef) until TableDefs::Append.
class TableDef {
  public:
    explicit TableDef(std::shared_ptr<TableCore> core) : m_core(std::move(core)) {}

    [[nodiscard]] std::string Name() const;
    /// Renames the table.
    void Name(const std::string& name);

    class FieldList {
      public:
        explicit FieldList(std::shared_ptr<TableCore> core) : m_core(std::move(core)) {}
        [[nodiscard]] int Count() const;
        Field operator()(std::string_view name) const; ///< 3265 when there is none
        Field operator()(int position) const;
        /// 3191 for a name that the table has, 3190 beyond 255 fields, 3259 for an unknown type, 3211
        /// when the table is open anywhere.
        void Append(const Field& field);
        /// 3265 when there is none, 3280 while an index uses it.
        void Delete(std::string_view name);

      private:
        std::shared_ptr<TableCore> m_core;
    };

    class IndexList {
      public:
        explicit IndexList(std::shared_ptr<TableCore> core) : m_core(std::move(core)) {}
        [[nodiscard]] int Count() const;
        Index operator()(std::string_view name) const;
        Index operator()(int position) const;
        /// 3264 without key fields, 3409 for a field that the table lacks, 3284 for a name that it has,
        /// 3283 for a second primary key, 3022 when the rows do not fit a unique one.
        void Append(const Index& index);
        void Delete(std::string_view name);

      private:
        std::shared_ptr<TableCore> m_core;
    };

    [[nodiscard]] FieldList Fields() const { return FieldList(m_core); }
    [[nodiscard]] Field Fields(std::string_view name) const { return Fields()(name); }
    [[nodiscard]] Field Fields(int position) const { return Fields()(position); }
    [[nodiscard]] IndexList Indexes() const { return IndexList(m_core); }
    [[nodiscard]] Index Indexes(std::string_view name) const { return Indexes()(name); }
    [[nodiscard]] Index Indexes(int position) const { return Indexes()(position); }
    [[nodiscard]] Field CreateField(const std::string& name, int type, int size = 0) const;
    [[nodiscard]] Index CreateIndex(const std::string& name) const;
    [[nodiscard]] TableDefinition definition() const;

  private:
    friend class TableDefs;
    std::shared_ptr<TableCore> m_core;
};

} // namespace tol::data
