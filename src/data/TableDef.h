// SPDX-License-Identifier: MIT
#pragma once

#include "data/Field.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tol::data {

class DatabaseCore; // state behind Database, private to the layer

/// An index of a table, or one under construction (CreateIndex). A value: what is changed in it takes
/// effect when it is appended to a table's indexes.
class Index {
  public:
    explicit Index(IndexDef definition) : m_definition(std::move(definition)) {}

    class FieldList {
      public:
        explicit FieldList(std::vector<std::string>& names) : m_names(names) {}
        [[nodiscard]] int Count() const { return static_cast<int>(m_names.size()); }
        /// The key field's name; 3265 when there is none at that position.
        [[nodiscard]] const std::string& operator()(int position) const;
        void Append(const Field& field) { m_names.push_back(field.Name()); }

      private:
        std::vector<std::string>& m_names;
    };

    [[nodiscard]] const std::string& Name() const { return m_definition.name; }
    [[nodiscard]] FieldList Fields() { return FieldList(m_definition.fields); }
    [[nodiscard]] Field CreateField(const std::string& name) const;
    [[nodiscard]] bool Primary() const { return m_definition.primary; }
    void Primary(bool primary) { m_definition.primary = primary; }
    [[nodiscard]] bool Unique() const { return m_definition.unique || m_definition.primary; }
    void Unique(bool unique) { m_definition.unique = unique; }
    [[nodiscard]] const IndexDef& definition() const { return m_definition; }

  private:
    IndexDef m_definition;
};

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

/// The tables of a database, by name (case does not matter) or by position in name order.
class TableDefs {
  public:
    explicit TableDefs(std::shared_ptr<DatabaseCore> core) : m_core(std::move(core)) {}
    [[nodiscard]] int Count() const;
    TableDef operator()(std::string_view name) const; ///< 3265 when there is none
    TableDef operator()(int position) const;
    /// Makes the table with its fields and indexes; 3010 for a name in use, 3125 for a name that can't
    /// be one. The TableDef stands for the new table afterwards.
    void Append(TableDef& table);
    /// Drops the table with its rows and indexes; 3265, 3211.
    void Delete(std::string_view name);

  private:
    std::shared_ptr<DatabaseCore> m_core;
};

} // namespace tol::data
