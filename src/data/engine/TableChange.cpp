// SPDX-License-Identifier: MIT
#include "data/engine/TableChange.h"

#include "data/engine/Names.h"
#include "runtime/RuntimeError.h"

#include <algorithm>
#include <span>
#include <utility>

namespace tol::data {
namespace {

/// A text without a size is as long as it may be; other types have a size of their own.
int completedSize(const FieldDef& field) {
    if (!isFieldType(field.type))
        runtime::raise(runtime::errInvalidFieldType, {field.name});
    if (field.type == dbText && (field.size < 0 || field.size > maxTextSize))
        runtime::raise(runtime::errInvalidArgument);
    return reportedSize(field.type, field.size == 0 ? maxTextSize : field.size);
}

int ordinalBehindLast(const TableDefinition& table) {
    return table.fields.empty() ? 0 : std::max(-1, table.fields.back().ordinal) + 1;
}

/// Behind those of the same ordinal.
void insertByOrdinal(std::vector<FieldDef>& fields, FieldDef field) {
    const auto place = std::ranges::upper_bound(fields, field.ordinal, {}, &FieldDef::ordinal);
    fields.insert(place, std::move(field));
}

bool isKey(const TableDefinition& table, std::string_view field) {
    return std::ranges::any_of(table.indexes, [field](const IndexDef& index) {
        return std::ranges::any_of(index.fields,
                                   [field](const std::string& key) { return sameName(key, field); });
    });
}

class Application {
  public:
    Application(TableDefinition& table, bool asFound) : m_table(table), m_asFound(asFound) {}

    void operator()(const CreateTable& change) {
        m_table = {};
        (*this)(RenameTable{change.table.name});
        for (const FieldDef& field : change.table.fields)
            (*this)(AddField{field});
        for (const IndexDef& index : change.table.indexes)
            (*this)(AddIndex{index});
    }

    void operator()(const DropTable&) { m_table = {}; }

    void operator()(const RenameTable& change) {
        if (change.newName != m_table.name || m_table.name.empty())
            requireNewName(change.newName, m_asFound);
        m_table.name = change.newName;
    }

    void operator()(const AddField& change) {
        FieldDef field = change.field;
        requireNewFieldName(field.name, m_asFound);
        field.size = completedSize(field);
        if (m_table.findField(field.name) >= 0)
            runtime::raise(runtime::errFieldTwice, {field.name});
        if (m_table.fields.size() >= static_cast<std::size_t>(maxFields))
            runtime::raise(runtime::errTooManyFields);
        if (field.ordinal < 0)
            field.ordinal = ordinalBehindLast(m_table);
        insertByOrdinal(m_table.fields, std::move(field));
    }

    void operator()(const DropField& change) {
        const FieldDef& field = this->field(change.field);
        if (isKey(m_table, field.name))
            runtime::raise(runtime::errFieldInIndex, {field.name});
        m_table.fields.erase(m_table.fields.begin() + (&field - m_table.fields.data()));
    }

    void operator()(const RenameField& change) {
        FieldDef& field = this->field(change.field);
        if (change.newName == field.name)
            return;
        requireNewFieldName(change.newName, m_asFound);
        const int other = m_table.findField(change.newName);
        if (other >= 0 && &m_table.fields[static_cast<std::size_t>(other)] != &field)
            runtime::raise(runtime::errFieldTwice, {change.newName});
        for (IndexDef& index : m_table.indexes)
            std::ranges::replace(index.fields, field.name, change.newName);
        field.name = change.newName;
    }

    void operator()(const SetOrdinal& change) {
        if (change.ordinal < 0)
            runtime::raise(runtime::errInvalidArgument);
        field(change.field).ordinal = change.ordinal;
        std::ranges::stable_sort(m_table.fields, {}, &FieldDef::ordinal);
    }

    void operator()(const SetAllowZeroLength& change) { field(change.field).allowZeroLength = change.allow; }

    void operator()(const AddIndex& change) {
        IndexDef index = change.index;
        requireNewName(index.name, m_asFound);
        if (index.fields.empty())
            runtime::raise(runtime::errNoFieldDefined, {index.name});
        if (m_table.findIndex(index.name) >= 0)
            runtime::raise(runtime::errIndexExists, {index.name});
        for (auto key = index.fields.begin(); key != index.fields.end(); ++key)
            spell(*key, {index.fields.begin(), key});
        if (index.primary && std::ranges::any_of(m_table.indexes, &IndexDef::primary))
            runtime::raise(runtime::errPrimaryKeyExists);
        index.unique = index.unique || index.primary;
        index.foreign = false;
        m_table.indexes.push_back(std::move(index));
    }

    void operator()(const DropIndex& change) {
        auto& indexes = m_table.indexes;
        const std::size_t position = requirePosition(m_table.findIndex(change.index), indexes.size());
        indexes.erase(indexes.begin() + static_cast<std::ptrdiff_t>(position));
    }

  private:
    FieldDef& field(std::string_view name) {
        return m_table.fields[requirePosition(m_table.findField(name), m_table.fields.size())];
    }

    /// A key field under the name that the table's field has.
    void spell(std::string& key, std::span<const std::string> before) const {
        const int position = m_table.findField(key);
        if (position < 0)
            runtime::raise(runtime::errIndexFieldNotFound, {key});
        const std::string& name = m_table.fields[static_cast<std::size_t>(position)].name;
        if (std::ranges::find(before, name) != before.end())
            runtime::raise(runtime::errFieldTwice, {key});
        key = name;
    }

    TableDefinition& m_table;
    bool m_asFound;
};

} // namespace

void apply(TableDefinition& table, const TableChange& change, bool asFound) {
    std::visit(Application(table, asFound), change);
}

} // namespace tol::data
