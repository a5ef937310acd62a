// SPDX-License-Identifier: MIT
#include "SearchModel.h"

#include <algorithm>
#include <cstdlib>
#include <tuple>

namespace tol::test {
namespace {

std::string upper(std::string text) {
    for (char& character : text)
        character = static_cast<char>(std::toupper(character));
    return text;
}

/// Up to the first character that is none of a number; blanks count for nothing.
int leadingNumber(std::string text) {
    std::erase(text, ' ');
    return std::atoi(text.c_str());
}

} // namespace

SearchModel::SearchModel(Kind kind, int defaultColumn)
    : m_kind(std::move(kind)), m_column(std::max(defaultColumn - 1, 0)) {
    list.endText = "End of List";
    list.emptyText = "No Items Found";
    list.textColumn.reset();
}

bool SearchModel::isEmpty() const {
    return m_kind.group.empty() && items.empty();
}

void SearchModel::sort() {
    m_sorted.clear();
    for (const Item& item : items)
        if (m_kind.group.empty() || item.group == m_kind.group)
            m_sorted.push_back(item);
    std::ranges::sort(m_sorted, {}, [&](const Item& item) {
        const std::string group = m_column == 1 && m_kind.nameBehindGroup ? item.group : "";
        const std::string word = m_column == 0 ? item.code : (m_column == 1 ? item.name : "");
        return std::tuple(group, word, m_column == 2 ? item.price : 0, item.key);
    });
    list.records.clear();
    for (const Item& item : m_sorted)
        list.records.push_back({item.key, item.code, item.name.empty() ? " " : item.name});
}

void SearchModel::open() {
    sort();
    list.load();
}

void SearchModel::clickTitle(int column) {
    if (column == m_column)
        return;
    m_column = column;
    m_number = column == 2;
    text.clear();
    list.textColumn = column == 0 ? std::nullopt : std::optional(column - 1);
    open();
}

void SearchModel::type(char character) {
    if (character == '\b' ? text.empty() : static_cast<int>(text.size()) >= m_kind.sizes[m_column])
        return;
    if (character == '\b')
        text.pop_back();
    else
        text += character;
    search();
}

/// Over all groups what begins with the text; where the order is that of the column, what comes first at or
/// behind it.
bool SearchModel::isFound(const Item& item) const {
    if (m_number)
        return item.price >= leadingNumber(text);
    const std::string& word = m_column == 0 ? item.code : item.name;
    if (m_column == 1 && m_kind.nameBehindGroup && m_kind.group.empty())
        return word.starts_with(upper(text));
    return !word.empty() && word >= upper(text);
}

ListModel::Mark SearchModel::find() const {
    const auto found = std::ranges::find_if(m_sorted, [&](const Item& item) { return isFound(item); });
    return found == m_sorted.end() ? ListModel::Mark() : found->key;
}

void SearchModel::search() {
    if (text.empty())
        list.load();
    else if (const ListModel::Mark mark = find())
        list.showFrom(mark);
    else
        list.reload();
}

} // namespace tol::test
