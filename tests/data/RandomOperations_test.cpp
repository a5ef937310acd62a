// SPDX-License-Identifier: MIT
#include "DataTest.h"
#include "TableModel.h"

#include "support/Raises.h"

#include <deque>
#include <functional>
#include <random>

using namespace tol::data;
using namespace tol::test;
using tol::runtime::Null;
using tol::runtime::Value;

namespace {

constexpr std::size_t recordsets = 3;
constexpr const char* words[] = {"",  "a", "A",     "ab",  "Ab", "b",   "B", "é",
                                 "É", "e", "Zebra", "zoo", "ä",  "x y", "中"};

/// Thousands of operations on several recordsets of one table, each checked
/// against a plain model.
class RandomOperations : public DataTest {
  protected:
    RandomOperations() : model(definition()) {
        std::vector<FieldDef> fields = model.definition().fields;
        make("T", fields, model.definition().indexes);
        other = DBEngine::CreateWorkspace("wksOTHER");
        openAll();
    }

    static TableDefinition definition() {
        TableDefinition table;
        table.name = "T";
        table.fields = {field("N", dbLong), field("TXT", dbText, 10), field("U", dbLong),
                        field("D", dbDouble)};
        table.fields[1].allowZeroLength = true;
        table.indexes = {plainIndex("BYN", {"N"}), plainIndex("BYTXT", {"TXT", "N"}),
                         uniqueIndex("BYU", {"U"})};
        return table;
    }

    /// Keeps the latest operations for the report of a failure.
    void tell(const std::string& operation) {
        history.push_back(operation);
        if (history.size() > 30)
            history.pop_front();
    }

    [[nodiscard]] std::string told() const {
        std::string text;
        for (const std::string& operation : history)
            text += "\n" + operation;
        return text;
    }

    std::uint32_t upTo(std::uint32_t count) { return static_cast<std::uint32_t>(random() % count); }

    void openAll() {
        second = other.OpenDatabase("TEST.MDB");
        rows.clear();
        wanted.clear();
        for (std::size_t i = 0; i < recordsets; ++i) {
            rows.push_back(i == 0 ? second.OpenRecordset("T") : database.OpenRecordset("T"));
            wanted.emplace_back(model);
        }
    }

    void closeAll() {
        rows.clear();
        second.Close();
    }

    Value randomValue(std::size_t fieldPosition) {
        if (upTo(8) == 0)
            return Null();
        switch (fieldPosition) {
        case 0:
            return static_cast<std::int32_t>(upTo(16)) - 4;
        case 1:
            return words[upTo(std::size(words))];
        case 2:
            return static_cast<std::int32_t>(upTo(150));
        default:
            return upTo(1000) / 8.0;
        }
    }

    void addRow(std::size_t at) {
        Row row(model.definition().fields.size(), Null());
        rows[at].AddNew();
        for (std::size_t i = 0; i < row.size(); ++i) {
            row[i] = randomValue(i);
            rows[at].Fields(static_cast<int>(i)).Value(row[i]);
        }
        const bool duplicate = model.isDuplicate(row, 0);
        ASSERT_EQ(errorOf([&] { rows[at].Update(); }), duplicate ? 3022 : 0);
        if (duplicate)
            rows[at].CancelUpdate();
        else
            bookmarks[model.add(row)] = rows[at].LastModified();
    }

    void edit(std::size_t at) {
        const int readable = wanted[at].readError();
        ASSERT_EQ(errorOf([&] { rows[at].Edit(); }), readable);
        if (readable != 0)
            return;
        Row row = model.rows().at(wanted[at].current());
        for (int changes = static_cast<int>(upTo(3)); changes >= 0; --changes) {
            const std::size_t changed = upTo(static_cast<std::uint32_t>(row.size()));
            row[changed] = randomValue(changed);
            rows[at].Fields(static_cast<int>(changed)).Value(row[changed]);
        }
        if (upTo(10) == 0) {
            rows[at].CancelUpdate();
            return;
        }
        const int error = wanted[at].update(row);
        ASSERT_EQ(errorOf([&] { rows[at].Update(); }), error);
        if (error != 0)
            rows[at].CancelUpdate();
        else
            ASSERT_EQ(rows[at].LastModified(), bookmarks[wanted[at].current()]);
    }

    void seek(std::size_t at) {
        const auto fields = model.keyFields(wanted[at].index());
        constexpr const char* comparisons[] = {"=", ">=", "<="};
        const char* comparison = comparisons[upTo(3)];
        Row keys;
        for (std::uint32_t i = 0;
             i <= upTo(static_cast<std::uint32_t>(std::max<std::size_t>(1, fields.size()))); ++i)
            keys.push_back(fields.empty() ? Value(1)
                                          : randomValue(fields[std::min<std::size_t>(i, fields.size() - 1)]));
        keys.resize(std::min(keys.size(), std::max<std::size_t>(1, fields.size())));
        const int error = errorOf([&] { rows[at].Seek(comparison, keys); });
        ASSERT_EQ(error, fields.empty() ? 3019 : 0);
        if (error == 0)
            wanted[at].seek(comparison, keys);
    }

    void goToBookmark(std::size_t at) {
        if (bookmarks.empty())
            return;
        auto chosen = bookmarks.begin();
        std::advance(chosen, upTo(static_cast<std::uint32_t>(bookmarks.size())));
        const int error = wanted[at].setBookmark(chosen->first);
        ASSERT_EQ(errorOf([&] { rows[at].Bookmark(chosen->second); }), error);
    }

    void chooseIndex(std::size_t at) {
        const auto& indexes = model.definition().indexes;
        const auto choice = upTo(static_cast<std::uint32_t>(indexes.size()) + 1);
        const std::string name = choice < indexes.size() ? indexes[choice].name : "";
        rows[at].Index(name);
        wanted[at].setIndex(name);
    }

    /// Makes or removes an index, for which everybody has to let go of the table.
    void changeIndexes() {
        ASSERT_EQ(errorOf([&] { database.TableDefs("T").Indexes().Delete("BYN"); }), 3211);
        closeAll();
        auto& indexes = model.definition().indexes;
        TableDef table = database.TableDefs("T");
        if (model.definition().findIndex("EXTRA") < 0) {
            indexes.push_back(upTo(2) == 0 ? plainIndex("EXTRA", {"D", "TXT"})
                                           : plainIndex("EXTRA", {"TXT"}));
            table.Indexes().Append(Index(indexes.back()));
        } else {
            table.Indexes().Delete("EXTRA");
            indexes.pop_back();
        }
        openAll();
    }

    void reopenEverything() {
        closeAll();
        reopen();
        openAll();
    }

    /// Changes that come to nothing with their workspace.
    void rollBack() {
        closeAll();
        Workspace passing = DBEngine::CreateWorkspace("wksPASSING");
        Database changed = passing.OpenDatabase("TEST.MDB");
        passing.BeginTrans();
        Recordset lost = changed.OpenRecordset("T");
        for (int i = 0; i < 5 && !lost.AtEOF(); ++i, lost.MoveNext()) {
            lost.Edit();
            lost.Fields("N").Value(77);
            lost.Update();
            lost.Delete();
        }
        add(lost, {{"N", 78}});
        passing.Close();
        openAll();
    }

    void remove(std::size_t at) {
        ASSERT_EQ(errorOf([&] { rows[at].Delete(); }), wanted[at].remove());
    }

    void move(std::size_t at) {
        const auto few = [&](auto real, auto modelled) {
            for (std::uint32_t i = 0; i <= upTo(6); ++i)
                ASSERT_EQ(errorOf([&] { (rows[at].*real)(); }), (wanted[at].*modelled)());
        };
        switch (upTo(8)) {
        case 0:
            return few(&Recordset::MoveFirst, &RecordsetModel::moveFirst);
        case 1:
            return few(&Recordset::MoveLast, &RecordsetModel::moveLast);
        case 2:
        case 3:
        case 4:
            return few(&Recordset::MovePrevious, &RecordsetModel::movePrevious);
        default:
            return few(&Recordset::MoveNext, &RecordsetModel::moveNext);
        }
    }

    void operate() {
        struct Choice {
            std::uint32_t weight;
            const char* name;
            std::function<void(std::size_t)> operation;
        };
        const Choice choices[] = {
            {290, "add", [&](std::size_t at) { addRow(at); }},
            {200, "edit", [&](std::size_t at) { edit(at); }},
            {80, "remove", [&](std::size_t at) { remove(at); }},
            {280, "move", [&](std::size_t at) { move(at); }},
            {50, "seek", [&](std::size_t at) { seek(at); }},
            {50, "bookmark", [&](std::size_t at) { goToBookmark(at); }},
            {40, "index", [&](std::size_t at) { chooseIndex(at); }},
            {4, "change indexes", [&](std::size_t) { changeIndexes(); }},
            {3, "reopen", [&](std::size_t) { reopenEverything(); }},
            {3, "roll back", [&](std::size_t) { rollBack(); }},
        };
        std::uint32_t left = upTo(1000);
        const Choice* choice = choices;
        for (; left >= choice->weight; ++choice)
            left -= choice->weight;
        const std::uint32_t at = upTo(recordsets);
        tell(std::string(choice->name) + " " + std::to_string(at));
        choice->operation(at);
    }

    void compare() {
        for (std::size_t at = 0; at < recordsets; ++at) {
            const RecordsetModel& expected = wanted[at];
            ASSERT_EQ(rows[at].RecordCount(), static_cast<std::int64_t>(model.rows().size()));
            ASSERT_EQ(rows[at].AtBOF(), expected.atBOF());
            ASSERT_EQ(rows[at].AtEOF(), expected.atEOF());
            ASSERT_EQ(rows[at].NoMatch(), expected.noMatch());
            ASSERT_EQ(errorOf([&] { static_cast<void>(rows[at].Fields(0).Value()); }), expected.readError());
            if (expected.readError() != 0)
                continue;
            ASSERT_EQ(rows[at].Bookmark(), bookmarks[expected.current()]);
            const Row& row = model.rows().at(expected.current());
            for (std::size_t i = 0; i < row.size(); ++i)
                ASSERT_EQ(rows[at].Fields(static_cast<int>(i)).Value(), row[i]);
        }
    }

    TableModel model;
    std::mt19937 random;
    Workspace other;
    Database second;
    std::vector<Recordset> rows;
    std::vector<RecordsetModel> wanted;
    std::map<int, std::string> bookmarks;
    std::deque<std::string> history;
};

} // namespace

TEST_P(RandomOperations, DoWhatAPlainModelDoes) {
    for (const std::uint32_t seed : {1U, 20U, 300U, 4000U}) {
        random.seed(seed);
        for (int step = 0; step < 1500; ++step) {
            operate();
            ASSERT_FALSE(HasFatalFailure()) << "seed " << seed << ", step " << step << told();
            compare();
            ASSERT_FALSE(HasFatalFailure()) << "seed " << seed << ", step " << step << told();
        }
    }
}

TOL_OVER_ALL_ENGINES(RandomOperations);
