// SPDX-License-Identifier: MIT
#include "demo/Values.h"

#include "demo/Lines.h"
#include "runtime/Conversions.h"
#include "runtime/Text.h"

#include <fmt/format.h>

#include <cmath>
#include <cstdlib>
#include <stdexcept>

namespace tol::demo {

using runtime::Value;

/// A row of numbers that looks like chance and is the same each time: a hash of where the value
/// stands, carried on by the splitmix64 step.
class Values::Chance {
  public:
    explicit Chance(std::string_view where, int row) {
        for (const char c : where) // FNV-1a
            m_state = (m_state ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
        m_state += static_cast<std::uint64_t>(row) * 0x9e3779b97f4a7c15U;
    }

    std::uint64_t next() {
        std::uint64_t z = (m_state += 0x9e3779b97f4a7c15U);
        z = (z ^ (z >> 30U)) * 0xbf58476d1ce4e5b9U;
        z = (z ^ (z >> 27U)) * 0x94d049bb133111ebU;
        return z ^ (z >> 31U);
    }
    std::int64_t below(std::int64_t limit) {
        return static_cast<std::int64_t>(next() % static_cast<std::uint64_t>(limit));
    }
    template <typename T>
    const T& oneOf(const std::vector<T>& all) {
        return all[static_cast<std::size_t>(below(static_cast<std::int64_t>(all.size())))];
    }

  private:
    std::uint64_t m_state = 0xcbf29ce484222325U;
};

namespace {

/// What a field holds when the texts do not say.
Content ordinaryContent(data::FieldType type) {
    switch (type) {
    case data::dbBoolean:
        return {"flag", {"50"}};
    case data::dbByte:
        return {"num", {"0", "9"}};
    case data::dbInteger:
        return {"num", {"1", "200"}};
    case data::dbLong:
        return {"num", {"1", "5000"}};
    case data::dbCurrency:
        return {"num", {"10", "5000", "2"}};
    case data::dbSingle:
        return {"num", {"0", "100", "1"}};
    case data::dbDouble:
        return {"num", {"0", "1000", "3"}};
    case data::dbDate:
        return {"date", {"2024-01-02", "360"}};
    case data::dbMemo:
        return {"pick", {"SENTENCE"}};
    default:
        return {"pick", {"NOTE"}};
    }
}

double numberBetween(double low, double high, int decimals, std::uint64_t chance) {
    const double scale = std::pow(10.0, decimals);
    const auto first = std::llround(low * scale);
    const auto count = std::llround(high * scale) - first + 1;
    return static_cast<double>(first +
                               static_cast<std::int64_t>(chance % static_cast<std::uint64_t>(count))) /
           scale;
}

Value identifier(std::uint64_t high, std::uint64_t low) {
    return fmt::format("{{{:08X}-{:04X}-{:04X}-{:04X}-{:012X}}}", high >> 32U, (high >> 16U) & 0xffffU,
                       high & 0xffffU, low >> 48U, low & 0xffffffffffffU);
}

runtime::Bytes someBytes(std::uint64_t content, std::size_t count) {
    runtime::Bytes bytes(count);
    for (std::size_t i = 0; i < count; ++i)
        bytes[i] = static_cast<std::byte>((content >> (8 * (i % 8))) + i);
    return bytes;
}

double argument(const Content& content, std::size_t position) {
    return position < content.arguments.size() ? std::atof(content.arguments[position].c_str()) : 0;
}

// Times of day lie between six in the morning and six in the evening, to the minute.
constexpr std::int64_t minutesOfDay = 1440;
constexpr std::int64_t firstMinute = 360;
constexpr std::int64_t minutesWorked = 720;

} // namespace

WordLists readLists() {
    WordLists lists;
    std::string content, name;
    for (Lines lines(texts::lists); lines.next();) {
        const std::string_view line = lines.line();
        std::string_view entries = trimmed(line);
        if (line.front() != ' ') {
            name = line.substr(0, line.find(':'));
            entries = trimmed(line.substr(name.size() + 1));
        } else if (entries.starts_with('|')) {
            entries.remove_prefix(1);
        }
        for (std::string& entry : parts(entries, '|'))
            lists[name].push_back(std::move(entry));
    }
    return lists;
}

Values::Values(const Suite& wanted, const WordLists& lists, std::string place, int percent)
    : m_wanted(wanted), m_lists(lists), m_place(std::move(place)), m_percent(percent) {}

int Values::rows(const TableRecipe& table) const {
    if (!table.grows || table.rows == 0)
        return table.rows;
    return std::max(1, table.rows * m_percent / 100);
}

Value Values::value(const TableRecipe& table, const FieldRecipe& field, int row) const {
    Chance chance(fmt::format("{}/{}/{}/{}", m_place, table.database, table.name, field.definition.name),
                  row);
    if (field.content.mayBeNull && chance.below(8) == 0)
        return runtime::Null{};
    if (field.definition.type == data::dbGUID) {
        const std::uint64_t high = chance.next();
        return identifier(high, chance.next());
    }
    if (field.definition.type == data::dbLongBinary)
        return someBytes(chance.next(), static_cast<std::size_t>(16 + chance.below(48)));
    Value value = made(table, field, row, chance);
    if (field.definition.type == data::dbText)
        return std::string(runtime::left(runtime::toText(value), field.definition.size));
    return value;
}

Value Values::made(const TableRecipe& table, const FieldRecipe& field, int row, Chance& chance) const {
    const Content content =
        field.content.kind.empty() ? ordinaryContent(field.definition.type) : field.content;
    const std::string& kind = content.kind;
    const std::vector<std::string>& arguments = content.arguments;
    if (kind == "seq")
        return static_cast<std::int32_t>(std::max(1.0, argument(content, 0))) + row - 1;
    if (kind == "num")
        return numberBetween(argument(content, 0), argument(content, 1),
                             static_cast<int>(argument(content, 2)), chance.next());
    if (kind == "code")
        return fmt::format("{}{:0{}}", arguments.at(0), row, static_cast<int>(argument(content, 1)));
    if (kind == "pick")
        return picked(arguments, chance);
    if (kind == "flag")
        return chance.below(100) < static_cast<std::int64_t>(argument(content, 0));
    if (kind == "each")
        return arguments.at(static_cast<std::size_t>(row - 1) % arguments.size());
    if (kind == "any")
        return chance.oneOf(arguments);
    if (kind == "ref")
        return referred(arguments.at(0), chance);
    if (kind == "next")
        return std::int32_t{rows(m_wanted.table(arguments.at(0))) + 1};
    if (kind == "date") {
        double serial = runtime::dateFromIso(arguments.at(0)).serial;
        serial += static_cast<double>(chance.below(static_cast<std::int64_t>(argument(content, 1))));
        if (arguments.size() > 2)
            serial += static_cast<double>(firstMinute + chance.below(minutesWorked)) / minutesOfDay;
        return runtime::Date{serial};
    }
    throw std::logic_error("unknown content " + kind + " of " + table.name + "." + field.definition.name);
}

Value Values::referred(const std::string& target, Chance& chance) const {
    const TableRecipe& table = m_wanted.table(target);
    const FieldRecipe* const field = table.findField(parts(target, '.').back());
    if (field == nullptr)
        throw std::logic_error("no field " + target + " in the demo");
    return value(table, *field, static_cast<int>(1 + chance.below(rows(table))));
}

std::string Values::picked(const std::vector<std::string>& names, Chance& chance) const {
    std::string text;
    for (const std::string& name : names) {
        const auto list = m_lists.find(name);
        if (list == m_lists.end())
            throw std::logic_error("no list " + name + " in the demo");
        if (!text.empty())
            text += ' ';
        text += chance.oneOf(list->second);
    }
    return text;
}

} // namespace tol::demo
