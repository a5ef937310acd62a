// SPDX-License-Identifier: MIT
#include "ListModel.h"

#include "runtime/KeyCodes.h"

#include <algorithm>

namespace tol::test {

using enum runtime::KeyCode;

ListModel::Place ListModel::placeOf(Mark mark) const {
    const auto found =
        std::ranges::find_if(records, [&](const Record& record) { return record.key == mark; });
    return found == records.end() ? Place() : static_cast<int>(found - records.begin());
}

ListModel::Mark ListModel::markAt(int place) const {
    return place < count() ? Mark(records[static_cast<std::size_t>(place)].key) : Mark();
}

/// Behind the last record comes one row with the text, then blank ones.
ListModel::Row ListModel::rowAt(int place) const {
    if (place == count())
        return rowOf(endText);
    if (place > count())
        return {};
    const Record& record = records[static_cast<std::size_t>(place)];
    return {record.code, record.name};
}

void ListModel::paintFrom(int place) {
    for (std::size_t i = 0; i < page.size(); ++i)
        page[i] = rowAt(place + static_cast<int>(i));
}

ListModel::Row ListModel::rowOf(const std::string& text) const {
    Row result;
    if (textColumn)
        (*textColumn == 0 ? result.code : result.name) = text;
    return result;
}

void ListModel::showOnly(const std::string& text) {
    std::ranges::fill(page, Row());
    page[0] = rowOf(text);
}

void ListModel::load() {
    row = 0;
    first = current = top = markAt(0);
    last = records.empty() ? Mark() : markAt(count() - 1);
    if (records.empty())
        showOnly(emptyText);
    else
        paintFrom(0);
}

/// The highlight keeps its row, or comes as near to it as there are records above.
void ListModel::reload() {
    const Place place = current ? placeOf(current) : Place(count());
    const bool isLost = !place && !records.empty();
    if (records.empty() || isLost)
        return load();
    first = markAt(0);
    last = markAt(count() - 1);
    if (!current && row == 0) {
        top = Mark();
        return showOnly(endText);
    }
    const int begin = std::max(*place - row, 0);
    row = *place - begin;
    top = markAt(begin);
    paintFrom(begin);
}

void ListModel::fill() {
    if (!top)
        showOnly(first ? endText : emptyText);
    else if (const Place place = placeOf(top))
        paintFrom(*place);
    else
        showAfresh();
}

void ListModel::showAfresh() {
    row = std::clamp(row, 0, m_lastRow);
    if (first)
        reload();
    else
        load();
}

void ListModel::press(int key, bool tableIsEmpty) {
    if (!tableIsEmpty && !move(key))
        showAfresh();
}

bool ListModel::move(int key) {
    switch (key) {
    case keyDown:
    case keyRight:
        return down();
    case keyUp:
    case keyLeft:
        return current ? up() : upFromEnd();
    case keyHome:
        return jump(first);
    case keyEnd:
        return jump(last);
    case keyPageDown:
        return !current || pageBy(m_lastRow);
    case keyPageUp:
        if (!current) {
            if (!placeOf(last))
                return false;
            current = last;
            --row;
        }
        return pageBy(-m_lastRow);
    default:
        return true;
    }
}

bool ListModel::down() {
    if (!current)
        return true; // End of List is the bottom
    const Place place = placeOf(current);
    if (!place)
        return false;
    current = markAt(*place + 1);
    if (row < m_lastRow) {
        ++row;
    } else {
        const Place begin = placeOf(top);
        if (!begin || *begin + 1 >= count())
            return false;
        top = markAt(*begin + 1);
        std::shift_left(page.begin(), page.end(), 1);
    }
    page[static_cast<std::size_t>(row)] = rowAt(*place + 1);
    return true;
}

bool ListModel::up() {
    const Place place = placeOf(current);
    if (!place)
        return false;
    if (*place == 0) {
        top = current;
        return true;
    }
    current = markAt(*place - 1);
    if (row > 0) {
        --row;
    } else {
        top = current;
        std::shift_right(page.begin(), page.end(), 1);
    }
    page[static_cast<std::size_t>(row)] = rowAt(*place - 1);
    return true;
}

bool ListModel::upFromEnd() {
    const Place place = placeOf(last);
    if (!place)
        return false;
    current = last;
    if (row > 0) {
        --row;
    } else {
        top = last;
        paintFrom(*place);
    }
    return true;
}

bool ListModel::jump(Mark mark) {
    const Place place = placeOf(mark);
    if (!place)
        return false;
    current = top = mark;
    row = 0;
    paintFrom(*place);
    return true;
}

void ListModel::showFrom(Mark mark) {
    first = markAt(0);
    last = markAt(count() - 1);
    jump(mark);
}

/// Highlight and top go on by so many records, each at most to the list's end.
bool ListModel::pageBy(int distance) {
    const auto goOn = [&](Mark& mark) -> Place {
        const Place place = placeOf(mark);
        if (!place)
            return place;
        const int there = std::clamp(*place + distance, 0, count() - 1);
        mark = markAt(there);
        return there;
    };
    const Place here = goOn(current);
    const Place begin = here ? goOn(top) : Place();
    if (!begin || *here < *begin || *here > *begin + m_lastRow)
        return false;
    row = *here - *begin;
    paintFrom(*begin);
    return true;
}

void ListModel::click(int clicked, bool tableIsEmpty) {
    const Row& shown = page[static_cast<std::size_t>(clicked)];
    if (shown.code == " " || tableIsEmpty)
        return;
    if (clicked == row) {
        ++(current ? edited : added);
        return;
    }
    const Place begin = placeOf(top);
    if (!begin || *begin + clicked >= count())
        return showAfresh();
    row = clicked;
    current = markAt(*begin + clicked);
}

} // namespace tol::test
