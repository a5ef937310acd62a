// SPDX-License-Identifier: MIT
// The search against a model of its rules: thousands of random sequences of typing, Backspace, moves, clicks
// and changes of the column, over all items or those of a group, which another connection changes between the
// keys.
#include "SearchModel.h"
#include "browse/PlainPage.h"
#include "data/DBEngine.h"
#include "data/sqlite/SqliteEngine.h"
#include "data/sqlite/connection/Connection.h"
#include "runtime/KeyCodes.h"
#include "runtime/Text.h"
#include "search_print/search/SearchList.h"
#include "support/TempFolder.h"
#include "support/TestHost.h"

#include <fmt/core.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <random>

namespace tol::test {
namespace {

using namespace search_print;
using enum runtime::KeyCode;

constexpr int sequences = 10'000;
constexpr int keysOfSequence = 8;
constexpr int mostItems = 40;
constexpr const char* groups[] = {"A", "B", "C"};

[[maybe_unused]] const bool engineAdded = [] {
    data::DBEngine::addEngine(std::make_unique<data::sqlite::SqliteEngine>());
    return true;
}();

class SearchListModel : public testing::Test {
  protected:
    SearchListModel() {
        database.CreateTable({.name = "ITEMS",
                              .fields = {{.name = "GRP", .type = data::dbText, .size = 3},
                                         {.name = "CODE", .type = data::dbText, .size = 8},
                                         {.name = "NAME", .type = data::dbText, .size = 8},
                                         {.name = "PRICE", .type = data::dbLong}},
                              .indexes = {{.name = "CODE", .fields = {"CODE"}},
                                          {.name = "NAME", .fields = {"NAME"}},
                                          {.name = "PRICE", .fields = {"PRICE"}},
                                          {.name = "GROUPCODE", .fields = {"GRP", "CODE"}},
                                          {.name = "GROUPNAME", .fields = {"GRP", "NAME"}},
                                          {.name = "GROUPPRICE", .fields = {"GRP", "PRICE"}}}});
        other.emplace("ITEMS.MDB", data::sqlite::Connection::Mode::ReadWrite);
        other->execute("PRAGMA synchronous = OFF; PRAGMA journal_mode = MEMORY"); // only for speed
    }

    int number(int from, int to) { return std::uniform_int_distribution<int>(from, to)(random); }
    bool happens(int percent) { return number(1, 100) <= percent; }
    std::string word(int longest) {
        std::string letters;
        for (int length = number(1, longest); length > 0; --length)
            letters += "01AB"[number(0, 3)];
        return letters;
    }

    void addItem();
    void removeItem(long key);
    void changeItems(int changes);
    SearchDescription description(const SearchModel::Kind& kind, int defaultColumn) const;
    void open();
    void typeSomething();
    void doSomething();
    void check();

    TempFolder folder;
    TestHost person;
    data::Workspace workspace = data::DBEngine::CreateWorkspace("test");
    data::Database database = workspace.CreateDatabase("ITEMS.MDB");
    std::optional<data::sqlite::Connection> other;
    std::mt19937 random{20261103};
    std::vector<SearchModel::Item> items;
    long lastKey = 1000;
    std::optional<SearchModel> model;
    std::optional<PlainPage> page;
    std::optional<SearchList> search;
    std::string log; ///< of the sequence
};

void SearchListModel::addItem() {
    const SearchModel::Item item{++lastKey, groups[number(0, 2)], word(3), happens(10) ? "" : word(4),
                                 number(-5, 120)};
    other->run("INSERT INTO ITEMS (MSysKey, GRP, CODE, NAME, PRICE) VALUES (?, ?, ?, nullif(?, ''), ?)",
               static_cast<std::int64_t>(item.key), item.group, item.code, item.name, item.price);
    items.push_back(item);
    log += fmt::format(" +{}({} {} {} {})", item.key, item.group, item.code, item.name, item.price);
}

void SearchListModel::removeItem(long key) {
    other->run("DELETE FROM ITEMS WHERE MSysKey = ?", static_cast<std::int64_t>(key));
    std::erase_if(items, [&](const SearchModel::Item& item) { return item.key == key; });
    log += fmt::format(" -{}", key);
}

/// As often as not the record that is highlighted, or at the top.
void SearchListModel::changeItems(int changes) {
    other->execute("BEGIN IMMEDIATE");
    for (; changes > 0; --changes) {
        const auto size = static_cast<int>(items.size());
        const ListModel::Mark mark =
            model ? (happens(50) ? model->list.current : model->list.top) : ListModel::Mark();
        if (size > 0 && mark && happens(30))
            removeItem(*mark);
        else if (size == mostItems || (size > 0 && happens(45)))
            removeItem(items[static_cast<std::size_t>(number(0, size - 1))].key);
        else
            addItem();
    }
    other->execute("COMMIT");
    // A person's key comes later than the engine's next look at the file, so let it look.
    static_cast<void>(database.OpenRecordset("ITEMS").RecordCount());
    if (search)
        static_cast<void>(search->list().recordset().RecordCount());
    if (model) {
        model->items = items;
        model->sort();
    }
}

SearchDescription SearchListModel::description(const SearchModel::Kind& kind, int defaultColumn) const {
    SearchDescription result{.DBName = "ITEMS",
                             .TableName = "ITEMS",
                             .IndexList = kind.nameBehindGroup ? "CODE|GROUPNAME|PRICE" : "CODE|NAME|PRICE",
                             .FieldList = "CODE|NAME|PRICE",
                             .FormatList = "C|C|N",
                             .SizeList = "3|4|3",
                             .TitleList = "Code|Name|Price",
                             .WidthList = "1000|2000|0",
                             .AlignList = "0|0|1",
                             .DefaultColumn = static_cast<std::int16_t>(defaultColumn)};
    if (!kind.group.empty()) {
        result.IndexList = "GROUPCODE|GROUPNAME|GROUPPRICE";
        result.KeyField1 = "GRP";
        result.KeyValue1 = kind.group;
    }
    return result;
}

void SearchListModel::open() {
    SearchModel::Kind kind{happens(50) ? groups[number(0, 2)] : "", happens(50)};
    kind.nameBehindGroup = kind.nameBehindGroup || !kind.group.empty();
    const int defaultColumn = number(0, 2);
    search.reset();
    model.reset();
    if (happens(40))
        changeItems(number(1, 20));
    log = fmt::format("group {}, by group {}, column {}, items:", kind.group, kind.nameBehindGroup,
                      defaultColumn);
    for (const SearchModel::Item& item : items)
        log += fmt::format(" {}({} {} {} {})", item.key, item.group, item.code, item.name, item.price);
    log += " keys:";
    const SearchDescription wanted = description(kind, defaultColumn);
    page.emplace(12, 6);
    search.emplace(*page, wanted, searchColumns(wanted));
    search->list().BrowseLoad();
    model.emplace(kind, defaultColumn);
    model->items = items;
    model->open();
}

void SearchListModel::typeSomething() {
    const char typed = "01ABab5 \b\b\b"[number(0, 10)];
    log += typed == '\b' ? std::string(" Backspace") : fmt::format(" '{}'", typed);
    search->keyDown(std::toupper(typed), std::isupper(typed) ? 1 : 0);
    model->type(typed);
}

void SearchListModel::doSomething() {
    constexpr int moves[] = {keyDown, keyDown,     keyDown,   keyRight, keyUp, keyUp,
                             keyLeft, keyPageDown, keyPageUp, keyHome,  keyEnd};
    const int what = number(1, 100);
    if (what <= 40)
        return typeSomething();
    if (what <= 75) {
        const int key = moves[number(0, std::size(moves) - 1)];
        log += fmt::format(" {}", key);
        search->keyDown(key, 0);
        model->press(key);
    } else if (what <= 88) {
        const int row = number(0, 11);
        log += fmt::format(" row {}", row);
        search->list().BrowseRowClick(row);
        model->click(row);
    } else {
        const int column = number(0, 2);
        log += fmt::format(" title {}", column);
        search->changeColumn(column);
        model->clickTitle(column);
    }
}

std::string markOf(const ListModel::Mark& mark) {
    return mark ? std::to_string(*mark) : " ";
}

void SearchListModel::check() {
    ASSERT_EQ(search->list().currentMark(), markOf(model->list.current)) << log;
    ASSERT_EQ(search->list().topMark(), markOf(model->list.top)) << log;
    ASSERT_EQ(page->highlighted(), std::vector<int>{model->list.row}) << log;
    ASSERT_EQ(search->text(), model->text) << log;
    for (int row = 0; row < 12; ++row) {
        const ListModel::Row& expected = model->list.page[static_cast<std::size_t>(row)];
        ASSERT_EQ(runtime::trim(page->caption(row, 0)), runtime::trim(expected.code))
            << "row " << row << " after " << log;
        ASSERT_EQ(runtime::trim(page->caption(row, 1)), runtime::trim(expected.name))
            << "row " << row << " after " << log;
        ASSERT_EQ(page->caption(row, 2), " ");
    }
}

TEST_F(SearchListModel, HoldsInRandomSequences) {
    for (int sequence = 0; sequence < sequences; ++sequence) {
        open();
        check();
        const bool isQuiet = happens(50);
        for (int key = 0; key < keysOfSequence && !HasFatalFailure(); ++key) {
            if (!isQuiet && happens(25))
                changeItems(number(1, 3));
            doSomething();
            check();
        }
        ASSERT_FALSE(HasFatalFailure()) << "in sequence " << sequence;
    }
    EXPECT_TRUE(person.boxes.empty());
}

} // namespace
} // namespace tol::test
