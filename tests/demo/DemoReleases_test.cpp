// SPDX-License-Identifier: MIT
#include "demo_support/DemoFolder.h"
#include "runtime/Conversions.h"
#include "runtime/Text.h"

#include <gmock/gmock.h>

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <set>

namespace tol::test {
namespace {

using data::FieldType;
using runtime::Value;
using testing::Contains;

/// A field that a run will convert, and the file that has it.
struct Conversion {
    std::string file, table, field;
    FieldType from, to;
    int fromSize, toSize;
};

/// What the files of a demo differ by from the wanted definition.
struct Differences {
    std::vector<Conversion> conversions;
    std::set<std::string> missingTables, surplusTables, missingFields, surplusFields, grown, shrunk;
    /// By what happens to the index: "missing", "surplus", "changed", "same"; with "unique" and "primary" in
    /// front where the live index is one.
    std::set<std::string> indexes;
    int tightTexts = 0;
};

using Pair = std::pair<int, int>;

std::string join(const std::vector<std::string>& keys) {
    return fmt::format("{}", fmt::join(keys, " "));
}

std::string kind(const data::IndexDef& index) {
    return index.primary ? "primary " : index.unique ? "unique " : "";
}

void compareFields(const std::string& file, const std::string& name, const data::TableDefinition& live,
                   const data::TableDefinition& wanted, Differences& found) {
    for (const data::FieldDef& field : wanted.fields) {
        const int position = live.findField(field.name);
        if (position < 0) {
            found.missingFields.insert(name + "." + field.name);
            continue;
        }
        const data::FieldDef& old = live.fields[static_cast<std::size_t>(position)];
        if (old.type != field.type)
            found.conversions.push_back({file, name, field.name, old.type, field.type, old.size, field.size});
        else if (old.size != field.size)
            (old.size < field.size ? found.grown : found.shrunk).insert(name + "." + field.name);
        else if (old.type == data::dbText && !old.allowZeroLength)
            ++found.tightTexts;
    }
    for (const data::FieldDef& field : live.fields) {
        if (wanted.findField(field.name) < 0)
            found.surplusFields.insert(name + "." + field.name);
    }
}

void compareIndexes(const data::TableDefinition& live, const data::TableDefinition& wanted,
                    Differences& found) {
    for (const data::IndexDef& index : wanted.indexes) {
        const int position = live.findIndex(index.name);
        if (position < 0) {
            found.indexes.insert("missing");
            continue;
        }
        const data::IndexDef& old = live.indexes[static_cast<std::size_t>(position)];
        found.indexes.insert(kind(old) + (join(old.fields) == join(index.fields) ? "same" : "changed"));
    }
    for (const data::IndexDef& index : live.indexes) {
        if (wanted.findIndex(index.name) < 0)
            found.indexes.insert(kind(index) + "surplus");
    }
}

Differences differencesOf(const DemoFolder& demo) {
    Differences found;
    for (const auto& [file, database] : demo.targets()) {
        const Definitions live = definitionsOf(file);
        const Definitions wanted = demo.wanted(database);
        for (const auto& [name, table] : wanted) {
            if (!live.contains(name)) {
                found.missingTables.insert(name);
                continue;
            }
            compareFields(file, name, live.at(name), table, found);
            compareIndexes(live.at(name), table, found);
        }
        for (const auto& [name, table] : live) {
            if (!wanted.contains(name))
                found.surplusTables.insert(name);
        }
    }
    return found;
}

TEST(DemoReleases, HaveMissingAndSurplusTablesAndFields) {
    const DemoFolder demo;
    const Differences found = differencesOf(demo);
    EXPECT_GE(found.missingTables.size(), 4U);
    EXPECT_GE(found.surplusTables.size(), 4U);
    EXPECT_GE(found.missingFields.size(), 15U);
    EXPECT_GE(found.surplusFields.size(), 6U);
    EXPECT_GE(found.grown.size(), 6U);
    EXPECT_GE(found.shrunk.size(), 3U);
    EXPECT_GT(found.tightTexts, 0);
}

TEST(DemoReleases, HaveEveryKindOfIndexDifference) {
    const DemoFolder demo;
    const Differences found = differencesOf(demo);
    for (const std::string difference : {"missing", "surplus", "changed", "same"}) {
        EXPECT_THAT(found.indexes, Contains(difference));
        if (difference != "missing") {
            EXPECT_THAT(found.indexes, Contains("unique " + difference));
            EXPECT_THAT(found.indexes, Contains("primary " + difference));
        }
    }
}

TEST(DemoReleases, NoTwoJobSitesAreAlike) {
    const DemoFolder demo;
    std::set<std::vector<std::string>> states;
    for (const Site& site : demo.sites()) {
        std::vector<std::string> state;
        for (const auto& [file, database] : demo.targets()) {
            if (!file.starts_with(site.location))
                continue;
            state.push_back(database);
            for (const std::string& line : describe(definitionsOf(file)))
                state.push_back(line);
        }
        states.insert(state);
    }
    EXPECT_EQ(states.size(), 6U);
}

/// Old types, and the wanted types that a conversion has a rule for.
constexpr std::array oldTypes{data::dbBoolean,  data::dbByte,       data::dbInteger, data::dbLong,
                              data::dbCurrency, data::dbSingle,     data::dbDouble,  data::dbDate,
                              data::dbText,     data::dbLongBinary, data::dbMemo,    data::dbGUID};
constexpr std::array wantedTypes{data::dbBoolean,  data::dbInteger, data::dbLong,
                                 data::dbCurrency, data::dbSingle,  data::dbDouble,
                                 data::dbDate,     data::dbText,    data::dbMemo};

TEST(DemoReleases, TouchEveryCellOfTheConversionMatrixWithRows) {
    const DemoFolder demo;
    std::map<Pair, std::int64_t> rows;
    for (const Conversion& conversion : differencesOf(demo).conversions)
        forEachRow(conversion.file, conversion.table, [&](const data::Recordset& row) {
            if (!row.Fields(conversion.field).Value().isNull())
                ++rows[{conversion.from, conversion.to}];
        });
    for (const FieldType from : oldTypes) {
        for (const FieldType to : wantedTypes) {
            if (from != to) {
                EXPECT_GT((rows[{from, to}]), 0) << "type " << from << " to type " << to;
            }
        }
    }
}

bool fitsInteger(const Value& value) {
    const double amount =
        value.is<std::string>() ? runtime::leadingNumber(value.get<std::string>()) : runtime::toDouble(value);
    return amount > -32767 && amount < 32767;
}

/// A date with a time of day has no date text of the known form.
bool isPlainDate(const Value& value) {
    const double serial = runtime::toDate(value).serial;
    return serial >= 1 && serial == std::floor(serial);
}

TEST(DemoReleases, HaveValuesThatConvertAndValuesThatDoNot) {
    const DemoFolder demo;
    std::map<Pair, std::set<bool>> outcomes;
    std::set<bool> dateTextFits;
    for (const Conversion& conversion : differencesOf(demo).conversions) {
        if (conversion.from == data::dbDate && conversion.to == data::dbText)
            dateTextFits.insert(conversion.toSize >= 10);
        const bool toDate = conversion.to == data::dbDate && conversion.from == data::dbText;
        if (!toDate && conversion.to != data::dbInteger)
            continue;
        if (conversion.from < data::dbLong ||
            (conversion.from > data::dbDouble && conversion.from != data::dbText))
            continue;
        forEachRow(conversion.file, conversion.table, [&](const data::Recordset& row) {
            const Value value = row.Fields(conversion.field).Value();
            outcomes[{conversion.from, conversion.to}].insert(toDate ? isPlainDate(value)
                                                                     : fitsInteger(value));
        });
    }
    const std::set<bool> both{false, true};
    for (const FieldType from :
         {data::dbLong, data::dbCurrency, data::dbSingle, data::dbDouble, data::dbText})
        EXPECT_EQ((outcomes[{from, data::dbInteger}]), both) << "type " << from << " to Integer";
    EXPECT_EQ((outcomes[{data::dbText, data::dbDate}]), both);
    EXPECT_EQ(dateTextFits, both);
}

} // namespace
} // namespace tol::test
