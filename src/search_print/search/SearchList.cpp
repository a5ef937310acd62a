// SPDX-License-Identifier: MIT
#include "search_print/search/SearchList.h"

#include "runtime/Conversions.h"
#include "runtime/KeyCodes.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "screens/input/KeyCharacters.h"
#include "shell/vdfunctions/vdBoxes.h"
#include "shell/vdfunctions/vdLocation.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdfunctions/vdTexts.h"

#include <algorithm>
#include <cmath>

namespace tol::search_print {
namespace {

using runtime::RuntimeError;
using runtime::Value;
using shell::vdIsBlank;
using shell::vdNotBlank;

constexpr int rows = 12;
constexpr int firstTypingKey = 41;    // besides the space bar; below are those that move
constexpr std::size_t keysToSeek = 3; // an index has room for no more beside the text
constexpr const char* labels[] = {"COL0", "COL1", "Col2", "Col3", "Col4", "COL5"};
/// Sorts behind every other character.
constexpr const char* lastCharacter = "\uFFFF";

std::string databaseFile(const SearchDescription& description) {
    const bool hasExtension = description.DBName.find('.') != std::string::npos;
    return shell::databaseName(description.DBPath, description.DBName + (hasExtension ? "" : ".MDB"));
}

/// A number as its format has it, 0 as a blank.
std::string cellText(const std::string& format, const data::Field& field) {
    return vdIsBlank(format) ? " " + shell::vdNullCheckText(field)
                             : shell::vdFormatOrDash(field.Value(), format, false);
}

/// Whether the error tells that nothing in the index can equal what was typed.
bool tellsOfText(const RuntimeError& error) {
    constexpr int numbers[] = {runtime::errOverflow, runtime::errTypeMismatch, runtime::errDataConversion,
                               runtime::errNoCurrentIndex};
    return std::ranges::find(numbers, error.number()) != std::end(numbers);
}

} // namespace

screens::BrowseDescription searchPage(const SearchColumns& columns) {
    screens::BrowseDescription page{.columns = {},
                                    .descriptionColumn = {},
                                    .rows = rows,
                                    .endText = "End of List",
                                    .emptyText = "No Items Found"};
    for (std::size_t column = 0; column < columns.size(); ++column) {
        const SearchColumn& shown = columns[column];
        const bool isSide = shown.ColAlign >= 0 && shown.ColAlign <= 2;
        page.columns.push_back({.label = std::string("lbl") + labels[column],
                                .headingLabel = "lblHCOL" + std::to_string(column),
                                .heading = " " + shown.ColTitle,
                                .width = std::max(shown.ColWidth, 0),
                                .align = static_cast<screens::TextAlign>(isSide ? shown.ColAlign : 0)});
    }
    return page;
}

SearchList::SearchList(screens::BrowsePage& page, SearchDescription description, SearchColumns columns)
    : m_description(std::move(description)),
      m_columns(std::move(columns)),
      m_table("wksSEARCH", databaseFile(m_description), m_description.TableName),
      m_keys(bindKeys()),
      m_column(defaultColumn()),
      m_type(m_columns[0].ColType),
      m_list(page, describeList(), m_table.rows, nullptr, {}) {
    findFieldsInFront();
}

shell::KeyPairs SearchList::bindKeys() const {
    const std::pair<const Value&, const std::string&> keys[] = {
        {m_description.KeyValue1, m_description.KeyField1},
        {m_description.KeyValue2, m_description.KeyField2},
        {m_description.KeyValue3, m_description.KeyField3},
        {m_description.KeyValue4, m_description.KeyField4},
    };
    std::size_t count = std::size(keys);
    while (count > 0 && vdIsBlank(keys[count - 1].second))
        --count;
    shell::KeyPairs pairs;
    for (std::size_t key = 0; key < count; ++key) {
        const auto& [value, field] = keys[key];
        const bool isLeftOut = value.isEmpty() && key < keysToSeek;
        pairs.push_back({isLeftOut ? Value(std::int16_t{0}) : value, m_table.rows.Fields(field)});
    }
    return pairs;
}

int SearchList::defaultColumn() const {
    if (m_description.DefaultColumn == 0)
        return 0;
    const int column = m_description.DefaultColumn - 1;
    if (column < 0 || column >= static_cast<int>(m_columns.size()))
        runtime::raise(runtime::errSubscript);
    return vdIsBlank(m_columns.at(column).ColIndex) ? 0 : column;
}

screens::BrowseDescription SearchList::describeList() {
    screens::BrowseDescription list = searchPage(m_columns);
    list.index = column().ColIndex;
    for (std::size_t at = 0; at < m_columns.size(); ++at) {
        const SearchColumn& shown = m_columns[at];
        list.columns[at].text = [](data::Recordset&) { return std::string(" "); };
        if (at > 0 && vdIsBlank(shown.ColField))
            continue;
        const data::Field field = m_table.rows.Fields(shown.ColField);
        if (shown.ColWidth > 0)
            list.columns[at].text = [&format = shown.ColFormat, field](data::Recordset&) {
                return cellText(format, field);
            };
    }
    if (!m_keys.empty())
        list.subset.keys = [this](data::Recordset&) { return m_keys; };
    return list;
}

void SearchList::findFieldsInFront() {
    m_front.clear();
    const data::TableDefinition table = m_table.database.TableDefs(m_description.TableName).definition();
    const int index = table.findIndex(column().ColIndex);
    if (index < 0)
        return;
    const std::vector<std::string>& fields = table.indexes[static_cast<std::size_t>(index)].fields;
    const auto begin = fields.begin() + static_cast<std::ptrdiff_t>(std::min(m_keys.size(), fields.size()));
    const auto own = std::find_if(begin, fields.end(), [&](const std::string& field) {
        return runtime::sameText(field, column().ColField);
    });
    if (own != fields.end())
        m_front.assign(begin, own);
}

bool SearchList::isSearchable(int column) const {
    return vdNotBlank(m_columns.at(column).ColIndex);
}

bool SearchList::changeColumn(int column) {
    const SearchColumn& chosen = m_columns.at(column);
    if (!isSearchable(column)) {
        shell::showBox("There is no Search Available by Column: " + chosen.ColTitle,
                       runtime::MsgIcon::Information, "Search Not Available");
        return false;
    }
    if (chosen.ColIndex == this->column().ColIndex)
        return false;
    m_column = column;
    m_type = chosen.ColType;
    m_text.clear();
    findFieldsInFront();
    // The suite's people know the texts of the end one column to the left, and none in the first.
    m_list.setOrder(chosen.ColIndex, column > 0 ? std::optional(column - 1) : std::nullopt);
    m_list.BrowseLoad();
    return true;
}

// ---------------------------------------------------------------- typing

bool SearchList::keyDown(int key, int shift) {
    const bool isTyped = type(key, shift);
    if (isTyped)
        search();
    else if (key < firstTypingKey)
        m_list.BrowseKeyDown(key, shift);
    return isTyped;
}

bool SearchList::type(int key, int shift) {
    const auto length = static_cast<long>(runtime::length(m_text));
    if (key == runtime::keyBack) {
        m_text.resize(runtime::left(m_text, std::max(length - 1, 0L)).size());
        return length > 0;
    }
    if ((key != runtime::keySpace && key < firstTypingKey) || length >= column().ColSize)
        return false;
    const std::string character = screens::vdKeyCodeChar(key, shift);
    m_text += character;
    return !character.empty();
}

void SearchList::search() {
    if (seek() && m_list.BrowseRowValid())
        m_list.showFrom(m_table.rows.Bookmark());
    else if (m_text.empty())
        m_list.BrowseLoad();
    else
        m_list.BrowseReload();
}

/// Goes to the first record of what was typed, which may lie behind those of the keys; false for none.
bool SearchList::seek() {
    data::Recordset& records = m_table.rows;
    if (m_keys.size() > keysToSeek) {
        shell::showBox("Invalid Key Count in vdSearch", runtime::MsgIcon::Critical, "Error: vdSearch");
        records.Index(column().ColIndex); // the table's first record stands for what was found
        return !records.IsEmpty();
    }
    if (m_text.empty())
        return false;
    try {
        if (m_type == "C" && !m_front.empty())
            return seekBeginning();
        Values keys = keyValues();
        keys.push_back(searchValue());
        records.Seek(">=", keys);
        return !records.NoMatch();
    } catch (const RuntimeError& error) {
        if (!tellsOfText(error))
            throw;
        return false;
    }
}

Value SearchList::searchValue() const {
    if (m_type == "C")
        return m_text;
    return std::nearbyint(runtime::leadingNumber(m_text)); // halves to the even number
}

SearchList::Values SearchList::keyValues() const {
    Values values;
    for (const shell::KeyPair& pair : m_keys)
        values.push_back(pair.key);
    return values;
}

// ---------------------------------------------------------------- behind other fields of the index

/// Records that agree in the fields in front lie together, by the column's text, so that it takes two seeks
/// for each such group.
bool SearchList::seekBeginning() {
    data::Recordset& records = m_table.rows;
    for (bool isRecord = m_list.goToFirst(); isRecord && m_list.BrowseRowValid();
         isRecord = !records.NoMatch()) {
        const Values group = groupOfRecord();
        if (seekInGroup(group))
            return true;
        records.Seek("<=", group);
        if (!records.NoMatch())
            records.MoveNext();
    }
    return false;
}

/// A text with an accent may lie between those that begin with the same letters without.
bool SearchList::seekInGroup(Values group) {
    data::Recordset& records = m_table.rows;
    const Values others = group;
    group.emplace_back(m_text);
    records.Seek(">=", group);
    const std::string end = m_text + lastCharacter;
    const auto length = static_cast<long>(runtime::length(m_text));
    while (!records.NoMatch() && m_list.BrowseRowValid() &&
           std::ranges::equal(groupOfRecord(), others, runtime::valuesEqual)) {
        const std::string text = sought();
        if (runtime::sameText(runtime::left(text, length), m_text))
            return true;
        if (runtime::compareText(text, end) > 0)
            return false;
        records.MoveNext();
    }
    return false;
}

SearchList::Values SearchList::groupOfRecord() const {
    Values values = keyValues();
    for (const std::string& field : m_front)
        values.push_back(m_table.rows.Fields(field).Value());
    return values;
}

std::string SearchList::sought() const {
    return shell::vdNullCheckText(m_table.rows.Fields(column().ColField));
}

} // namespace tol::search_print
