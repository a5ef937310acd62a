// SPDX-License-Identifier: MIT
// Lists against a model of their rules: thousands of random key sequences over lists of 0 to 40 records, with
// records added and deleted between the keys by another connection to the same file.
#include "ListModel.h"
#include "ListTest.h"
#include "data/sqlite/connection/Connection.h"

#include <fmt/core.h>

#include <algorithm>
#include <random>

namespace tol::test {
namespace {

using namespace screens;

constexpr int sequences = 5'000; // of each kind of list
constexpr int keysOfSequence = 6;
constexpr int longestList = 40;

struct Move {
    int key; ///< or one of the following
    int weight;
};
constexpr int click = -1, reload = -2, fill = -3;
constexpr Move moves[] = {
    {keyDown, 20}, {keyRight, 3}, {keyUp, 14}, {keyLeft, 3}, {keyPageDown, 11}, {keyPageUp, 11},
    {keyHome, 4},  {keyEnd, 8},   {click, 10}, {reload, 5},  {fill, 3},
};

class BrowseListModel : public ListTest {
  protected:
    static constexpr int children = 5;

    BrowseListModel() {
        parent = children;
        other.execute("PRAGMA synchronous = OFF; PRAGMA journal_mode = MEMORY"); // only for speed
    }

    int number(int from, int to) { return std::uniform_int_distribution<int>(from, to)(random); }
    bool happens(int percent) { return number(1, 100) <= percent; }
    ListModel::Record& anyRecord() {
        return model
            ->records[static_cast<std::size_t>(number(0, static_cast<int>(model->records.size()) - 1))];
    }

    void addRecord();
    void deleteRecord(long key);
    void deleteMarkedRecord();
    /// Some records less or more, as often as not those on which the list leans.
    void changeRecords();
    void makeList();
    void resizeList();
    void startSequence();
    int chooseMove();
    void doMove(int move);
    void check() const;
    void run();

    std::mt19937 random{20260511};
    data::sqlite::Connection other{"LIST.MDB", data::sqlite::Connection::Mode::ReadWrite};
    std::optional<ListModel> model;
    long lastKey = 1000;
    bool isSubset = false;
    std::string log; ///< of the sequence
};

void BrowseListModel::addRecord() {
    ++lastKey;
    const ListModel::Record record{lastKey, fmt::format("{:03}", number(0, 999)),
                                   fmt::format("N{}", lastKey)};
    other.run("INSERT INTO ITEMS (MSysKey, PARENT, CODE, NAME) VALUES (?, ?, ?, ?)",
              static_cast<std::int64_t>(record.key), children, record.code, record.name);
    const auto behind = std::ranges::upper_bound(model->records, record.code, {}, &ListModel::Record::code);
    model->records.insert(behind, record);
    log += " +" + record.code;
}

void BrowseListModel::deleteRecord(long key) {
    other.run("DELETE FROM ITEMS WHERE MSysKey = ?", static_cast<std::int64_t>(key));
    std::erase_if(model->records, [&](const ListModel::Record& record) { return record.key == key; });
    log += fmt::format(" -{}", key);
}

void BrowseListModel::deleteMarkedRecord() {
    const ListModel::Mark marks[] = {model->current, model->top, model->first, model->last};
    if (const auto mark = marks[number(0, 3)])
        deleteRecord(*mark);
}

void BrowseListModel::changeRecords() {
    other.execute("BEGIN IMMEDIATE");
    for (int change = number(1, 3); change > 0; --change) {
        const auto size = static_cast<int>(model->records.size());
        if (size > 0 && happens(30))
            deleteMarkedRecord();
        else if (size > 0 && (size == longestList || happens(40)))
            deleteRecord(anyRecord().key);
        else
            addRecord();
    }
    other.execute("COMMIT");
    // A person's key comes later than the engine's next look at the file, so let it look.
    static_cast<void>(recordset.RecordCount());
}

void BrowseListModel::makeList() {
    BrowseDescription description = isSubset ? subset() : wholeTable();
    description.rows = isSubset ? 5 : 8;
    model.emplace(description.rows);
    make(description);
}

void BrowseListModel::resizeList() {
    const int size = happens(30) ? number(0, 3) : number(0, longestList);
    other.execute("BEGIN IMMEDIATE");
    while (static_cast<int>(model->records.size()) > size)
        deleteRecord(anyRecord().key);
    while (static_cast<int>(model->records.size()) < size)
        addRecord();
    other.execute("COMMIT");
    static_cast<void>(recordset.RecordCount());
}

void BrowseListModel::startSequence() {
    done.clear();
    model->added = model->edited = 0;
    if (happens(40))
        resizeList();
    log = fmt::format("{} records:", model->records.size());
    list->BrowseLoad();
    model->load();
}

int BrowseListModel::chooseMove() {
    int weight = 0;
    for (const Move& move : moves)
        weight += move.weight;
    int chosen = number(1, weight);
    const auto* move = std::begin(moves);
    while ((chosen -= move->weight) > 0)
        ++move;
    return move->key;
}

void BrowseListModel::doMove(int move) {
    const bool tableIsEmpty = !isSubset && model->records.empty();
    log += fmt::format(" {}", move);
    if (move == click) {
        const int row = number(0, list->description().rows - 1);
        log += fmt::format("({})", row);
        list->BrowseRowClick(row);
        model->click(row, tableIsEmpty);
    } else if (move == reload) {
        list->BrowseReload();
        model->reload();
    } else if (move == fill) {
        list->BrowseFillPage();
        model->fill();
    } else {
        press(move);
        model->press(move, tableIsEmpty);
    }
}

std::string markOf(const ListModel::Mark& mark) {
    return mark ? std::to_string(*mark) : " ";
}

void BrowseListModel::check() const {
    ASSERT_EQ(list->currentMark(), markOf(model->current)) << log;
    ASSERT_EQ(list->topMark(), markOf(model->top)) << log;
    ASSERT_EQ(list->row(), model->row) << log;
    ASSERT_EQ(page->highlighted(), std::vector<int>{model->row}) << log;
    for (int row = 0; row < list->description().rows; ++row) {
        const ListModel::Row& expected = model->page[static_cast<std::size_t>(row)];
        ASSERT_EQ(page->caption(row, 0), expected.code) << "row " << row << " after " << log;
        ASSERT_EQ(page->caption(row, 1), expected.name) << "row " << row << " after " << log;
    }
    ASSERT_EQ(std::ranges::count(done, "edit"), model->edited) << log;
    ASSERT_EQ(std::ranges::count(done, "add"), model->added) << log;
}

void BrowseListModel::run() {
    makeList();
    for (int sequence = 0; sequence < sequences; ++sequence) {
        startSequence();
        check();
        const bool isQuiet = happens(40);
        for (int key = 0; key < keysOfSequence && !HasFatalFailure(); ++key) {
            if (!isQuiet && happens(25))
                changeRecords();
            doMove(chooseMove());
            check();
        }
        ASSERT_FALSE(HasFatalFailure()) << "in sequence " << sequence;
    }
    EXPECT_TRUE(person.boxes.empty());
}

TEST_F(BrowseListModel, HoldsForAWholeTable) {
    run();
}

TEST_F(BrowseListModel, HoldsForTheChildrenOfOneParent) {
    add({"000", "500", "999"}, children - 1);
    add({"000", "500", "999"}, children + 1);
    isSubset = true;
    run();
}

} // namespace
} // namespace tol::test
