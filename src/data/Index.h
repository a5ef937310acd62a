// SPDX-License-Identifier: MIT
#pragma once

#include "data/Field.h"

#include <string>
#include <vector>

namespace tol::data {

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

} // namespace tol::data
