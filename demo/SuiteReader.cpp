// SPDX-License-Identifier: MIT
#include "demo/SuiteReader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <set>

namespace tol::demo {

namespace {

constexpr int wantedRelease = 4;

struct TypeName {
    std::string_view name;
    data::FieldType type;
};

constexpr std::array<TypeName, 11> typeNames{{{"bool", data::dbBoolean},
                                              {"byte", data::dbByte},
                                              {"int", data::dbInteger},
                                              {"long", data::dbLong},
                                              {"money", data::dbCurrency},
                                              {"single", data::dbSingle},
                                              {"double", data::dbDouble},
                                              {"date", data::dbDate},
                                              {"binary", data::dbLongBinary},
                                              {"memo", data::dbMemo},
                                              {"guid", data::dbGUID}}};

int number(std::string_view text) {
    int value = -1;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

/// Fills in type and size; false for a word that names no type.
bool setType(data::FieldDef& field, std::string_view word) {
    if (word.starts_with("text")) {
        field.type = data::dbText;
        field.size = number(word.substr(4));
        return field.size > 0;
    }
    const auto* const found = std::ranges::find(typeNames, word, &TypeName::name);
    if (found == typeNames.end())
        return false;
    field.type = found->type;
    field.size = data::reportedSize(field.type, 0);
    return true;
}

/// What is left of a line behind its first `count` words.
std::string_view behind(std::string_view text, std::size_t count) {
    for (text = trimmed(text); count > 0 && !text.empty(); --count)
        text = trimmed(text.substr(std::min(text.find_first_of(" \t"), text.size())));
    return text;
}

Content contentFrom(std::string_view text) {
    Content content;
    if (text == "?" || text.ends_with(" ?")) {
        content.mayBeNull = true;
        text = trimmed(text.substr(0, text.size() - 1));
    }
    const std::vector<std::string> all = words(text);
    if (all.empty())
        return content;
    content.kind = all.front();
    if (content.kind == "each" || content.kind == "any")
        content.arguments = parts(behind(text, 1), '|');
    else
        content.arguments.assign(all.begin() + 1, all.end());
    return content;
}

} // namespace

void SuiteReader::readDefinition(const Text& text) {
    Lines lines(text);
    m_lines = &lines;
    while (lines.next())
        readLine();
    m_lines = nullptr;
}

void SuiteReader::readChanges(const Text& text, std::string_view heading) {
    Lines lines(text);
    m_lines = &lines;
    bool within = false;
    while (lines.next()) {
        const std::string_view line = trimmed(lines.line());
        if (line.starts_with("release ") || line.starts_with("site "))
            within = line == heading;
        else if (within)
            readLine();
    }
    m_lines = nullptr;
}

void SuiteReader::readLine() {
    std::string_view text = trimmed(m_lines->line());
    Step step = Step::Add;
    if (const char sign = text.front(); sign == '-' || sign == '~' || sign == '+') {
        step = sign == '-' ? Step::Remove : sign == '~' ? Step::Replace : Step::Add;
        text = trimmed(text.substr(1));
    }
    const std::vector<std::string> line = words(text);
    const std::string& first = line.front();
    if (line.size() < 2) {
        if (step != Step::Remove)
            m_lines->fail("too few words");
        removeField(first);
    } else if (first == "database") {
        m_database = line[1];
        m_suite.m_databases[m_database];
    } else if (first == "group") {
        m_group = line[1];
        m_table.clear();
    } else if (first == "in") {
        m_database = parts(line[1], '.').front();
        m_table = parts(line[1], '.').back();
    } else if (first == "table") {
        readTable(step, line);
    } else if (first == "use") {
        useGroup(line[1]);
    } else if (first == "index" || first == "unique" || first == "primary") {
        readIndex(step, line);
    } else {
        readField(step, text, line);
    }
}

void SuiteReader::readTable(Step step, const std::vector<std::string>& line) {
    std::vector<std::string> path = parts(line[1], '.');
    if (path.size() == 2)
        m_database = path.front();
    m_table = path.back();
    if (step == Step::Remove) {
        if (m_suite.m_databases[m_database].erase(m_table) == 0)
            m_lines->fail("no such table");
        return;
    }
    TableRecipe recipe;
    recipe.database = m_database;
    recipe.name = m_table;
    std::string_view rows = line.size() > 2 ? std::string_view(line[2]) : std::string_view("0");
    recipe.grows = !rows.starts_with('=');
    recipe.rows = number(rows.substr(recipe.grows ? 0 : 1));
    if (recipe.rows < 0 || !m_suite.m_databases[m_database].emplace(m_table, std::move(recipe)).second)
        m_lines->fail("bad number of rows, or the table is there already");
}

void SuiteReader::readIndex(Step step, const std::vector<std::string>& line) {
    std::vector<data::IndexDef>& indexes = table().indexes;
    const auto found = std::ranges::find(indexes, line[1], &data::IndexDef::name);
    if ((found == indexes.end()) != (step == Step::Add))
        m_lines->fail("the index is there already, or is not");
    if (step == Step::Remove) {
        indexes.erase(found);
        return;
    }
    if (line.size() < 4 || line[2] != "=")
        m_lines->fail("an index needs \"= FIELDS\"");
    data::IndexDef index;
    index.name = line[1];
    index.primary = line.front() == "primary";
    index.unique = index.primary || line.front() == "unique";
    index.fields.assign(line.begin() + 3, line.end());
    for (const std::string& field : index.fields) {
        if (table().findField(field) == nullptr)
            m_lines->fail("no field " + field);
    }
    if (step == Step::Add)
        indexes.push_back(index);
    else
        *found = index;
}

void SuiteReader::readField(Step step, std::string_view text, const std::vector<std::string>& line) {
    FieldRecipe field = fieldFrom(text, line);
    const auto found = std::ranges::find_if(
        fields(), [&](const FieldRecipe& other) { return other.definition.name == field.definition.name; });
    if ((found == fields().end()) != (step == Step::Add))
        m_lines->fail("the field is there already, or is not");
    if (step == Step::Add) {
        fields().push_back(std::move(field));
        return;
    }
    if (field.content.kind.empty()) // the same values in another type
        field.content = found->content;
    *found = std::move(field);
}

FieldRecipe SuiteReader::fieldFrom(std::string_view text, const std::vector<std::string>& line) const {
    FieldRecipe field;
    field.definition.name = line[0];
    if (!setType(field.definition, line[1]))
        m_lines->fail("no type " + line[1]);
    const bool tight = line.size() > 2 && line[2] == "tight";
    field.definition.allowZeroLength =
        !tight && (field.definition.type == data::dbText || field.definition.type == data::dbMemo);
    field.content = contentFrom(behind(text, tight ? 3 : 2));
    return field;
}

void SuiteReader::removeField(const std::string& name) {
    for (const data::IndexDef& index : table().indexes) {
        if (std::ranges::find(index.fields, name) != index.fields.end())
            m_lines->fail("index " + index.name + " still uses the field");
    }
    if (std::erase_if(fields(), [&](const FieldRecipe& field) { return field.definition.name == name; }) == 0)
        m_lines->fail("no such field");
}

void SuiteReader::useGroup(const std::string& name) {
    const auto group = m_groups.find(name);
    if (group == m_groups.end())
        m_lines->fail("no such group");
    fields().insert(fields().end(), group->second.begin(), group->second.end());
}

std::vector<FieldRecipe>& SuiteReader::fields() {
    return m_table.empty() ? m_groups[m_group] : table().fields;
}

TableRecipe& SuiteReader::table() {
    auto& tables = m_suite.m_databases[m_database];
    const auto found = tables.find(m_table);
    if (found == tables.end())
        m_lines->fail("no table " + m_database + "." + m_table);
    return found->second;
}

Suite wantedSuite() {
    Suite suite;
    SuiteReader(suite).readDefinition(texts::definition);
    return suite;
}

Suite programsOwn() {
    Suite suite;
    SuiteReader(suite).readDefinition(texts::own);
    return suite;
}

Suite suiteOf(int release, const std::string& site) {
    Suite suite = wantedSuite();
    SuiteReader reader(suite);
    for (int step = wantedRelease - 1; step >= release; --step)
        reader.readChanges(texts::releases, "release " + std::to_string(step));
    reader.readChanges(texts::releases, "site " + site);
    return suite;
}

} // namespace tol::demo
