// SPDX-License-Identifier: MIT
#include "rights/model/RightsTables.h"

#include "data/engine/FileError.h"
#include "runtime/Conversions.h"

#include <fmt/format.h>

#include <array>
#include <utility>

namespace tol::rights {
namespace {

using runtime::RuntimeError;
using runtime::Value;

void take(const Value& value, std::int32_t& member) {
    member = value.isNull() ? 0 : runtime::toLong(value);
}

void take(const Value& value, bool& member) {
    member = !value.isNull() && runtime::toBoolean(value);
}

void take(const Value& value, std::string& member) {
    member = value.isNull() ? std::string() : runtime::toText(value);
}

template <typename Row>
std::string placeOf(std::string_view field) {
    return fmt::format("Table \"{}\", field \"{}\"", Row::table, field);
}

template <typename Row>
data::Field fieldOf(const data::Recordset& rows, std::string_view name) {
    try {
        return rows.Fields(name);
    } catch (const RuntimeError& error) {
        throw data::atPlace(placeOf<Row>(name), error);
    }
}

template <typename Row, typename Type>
void readField(const data::Field& field, const RowField<Row, Type>& description, Row& row) {
    try {
        take(field.Value(), row.*description.member);
    } catch (const RuntimeError& error) {
        throw data::atPlace(placeOf<Row>(description.name), error);
    }
}

template <typename Row>
std::vector<Row> rowsOf(data::Recordset& rows) {
    return std::apply(
        [&](const auto&... descriptions) {
            const std::array fields{fieldOf<Row>(rows, descriptions.name)...};
            std::vector<Row> result;
            result.reserve(static_cast<std::size_t>(rows.RecordCount()));
            for (; !rows.AtEOF(); rows.MoveNext()) {
                Row& row = result.emplace_back();
                std::size_t at = 0;
                (readField(fields[at++], descriptions, row), ...);
            }
            return result;
        },
        Row::fields());
}

} // namespace

template <typename Row>
std::vector<Row> readRows(data::Database& database, RowOrder order) {
    try {
        data::Recordset rows = database.OpenRecordset(Row::table);
        if (order == RowOrder::Listed && *Row::order != '\0')
            rows.Index(Row::order);
        return rowsOf<Row>(rows);
    } catch (const RuntimeError& error) {
        throw data::aboutFile(error, database.Name());
    }
}

template std::vector<Module> readRows(data::Database&, RowOrder);
template std::vector<AccessItem> readRows(data::Database&, RowOrder);
template std::vector<Template> readRows(data::Database&, RowOrder);
template std::vector<TemplateItem> readRows(data::Database&, RowOrder);
template std::vector<User> readRows(data::Database&, RowOrder);
template std::vector<Right> readRows(data::Database&, RowOrder);
template std::vector<TagCounters> readRows(data::Database&, RowOrder);
template std::vector<NetSettings> readRows(data::Database&, RowOrder);
template std::vector<LockHolder> readRows(data::Database&, RowOrder);

RightsTables readTables(data::Database& database, RowOrder order) {
    RightsTables tables;
    tables.rights = readRows<Right>(database, order);
    tables.templateItems = readRows<TemplateItem>(database, order);
    tables.users = readRows<User>(database, order);
    tables.templates = readRows<Template>(database, order);
    tables.items = readRows<AccessItem>(database, order);
    tables.modules = readRows<Module>(database, order);
    return tables;
}

} // namespace tol::rights
