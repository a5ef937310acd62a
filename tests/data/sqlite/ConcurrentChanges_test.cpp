// SPDX-License-Identifier: MIT
// Walks in batches while rows change under them: through the cursor itself, through another cursor of
// the same store, and by a program that writes to the file on its own. A model of the table tells after
// each step which row must come.
#include "EngineTest.h"
#include "runtime/Text.h"

#include <algorithm>
#include <compare>
#include <map>
#include <optional>
#include <random>
#include <set>

namespace tol::test {
namespace {

using namespace data;
using runtime::Null;
using runtime::Value;

struct Row {
    std::optional<int> number;
    std::optional<std::string> text;
    bool operator==(const Row&) const = default;
};

/// A place in the order of the index over number and text, or in stored order.
struct Place {
    Row row;
    long key = 0;
};

int compareNumbers(const std::optional<int>& left, const std::optional<int>& right) {
    return left < right ? -1 : left == right ? 0 : 1; // nothing comes before all numbers
}

int compareTexts(const std::optional<std::string>& left, const std::optional<std::string>& right) {
    if (!left || !right)
        return static_cast<int>(left.has_value()) - static_cast<int>(right.has_value());
    return runtime::compareText(*left, *right);
}

class Model {
  public:
    std::map<long, Row> rows;
    bool byIndex = false;

    [[nodiscard]] bool isBefore(const Place& left, const Place& right) const {
        if (byIndex) {
            if (const int order = compareNumbers(left.row.number, right.row.number))
                return order < 0;
            if (const int order = compareTexts(left.row.text, right.row.text))
                return order < 0;
        }
        return left.key < right.key;
    }

    /// The row next to a place, those that are passed over left out.
    [[nodiscard]] std::optional<Place> neighbour(const Place& from, bool forward,
                                                 const std::set<long>& passedOver) const {
        std::optional<Place> best;
        for (const auto& [key, row] : rows) {
            const Place place{row, key};
            const bool ahead = forward ? isBefore(from, place) : isBefore(place, from);
            if (!ahead || passedOver.contains(key))
                continue;
            if (!best || (forward ? isBefore(place, *best) : isBefore(*best, place)))
                best = place;
        }
        return best;
    }
};

Value valueOf(const std::optional<int>& number) {
    return number ? Value(*number) : Value(Null{});
}

Value valueOf(const std::optional<std::string>& text) {
    return text ? Value(*text) : Value(Null{});
}

class ConcurrentChanges : public EngineTest, public testing::WithParamInterface<int> {
  protected:
    ConcurrentChanges() : m_random(static_cast<unsigned>(GetParam())) {
        createTable(*store, {.name = "T",
                             .fields = {{.name = "Number", .type = dbLong, .size = 4},
                                        {.name = "Text", .type = dbText, .size = 10},
                                        {.name = "Free", .type = dbLong, .size = 4}},
                             .indexes = {{.name = "Both", .fields = {"Number", "Text"}}}});
        m_other = openCursor(*store, "T");
        for (int i = 0; i < 60; ++i)
            insertByOtherCursor();
        store->flush();
        m_plain = std::make_unique<PlainSqlite>(file());
        m_plain->execute("PRAGMA synchronous = OFF"); // no power fails here
    }

    int pick(int below) { return static_cast<int>(m_random() % static_cast<unsigned>(below)); }

    Row randomRow() {
        Row row;
        if (pick(6) > 0)
            row.number = pick(8);
        static const char* texts[] = {"", "a", "A", "b", "Bb", "é", "z z"};
        if (pick(5) > 0)
            row.text = texts[pick(7)];
        return row;
    }

    long randomKey() {
        auto at = m_model.rows.begin();
        std::advance(at, pick(static_cast<int>(m_model.rows.size())));
        return at->first;
    }

    void insertByOtherCursor() {
        const Row row = randomRow();
        const Assignment values[] = {{0, valueOf(row.number)}, {1, valueOf(row.text)}};
        m_model.rows[std::stol(m_other->insert(values))] = row;
    }

    void changeByOtherCursor() {
        const long key = randomKey();
        ASSERT_TRUE(m_other->seekBookmark(std::to_string(key)));
        if (pick(3) == 0) {
            m_other->remove();
            m_model.rows.erase(key);
            return;
        }
        const Row row = randomRow();
        const Assignment values[] = {{0, valueOf(row.number)}, {1, valueOf(row.text)}};
        m_other->update(values);
        m_model.rows[key] = row;
    }

    static std::string literal(const Row& row) {
        return (row.number ? std::to_string(*row.number) : "NULL") + ", " +
               (row.text ? "'" + *row.text + "'" : "NULL");
    }

    void changeByOtherProgram() {
        store->flush();
        const long key = randomKey();
        const Row row = randomRow();
        switch (pick(3)) {
        case 0:
            m_plain->execute("DELETE FROM T WHERE MSysKey = " + std::to_string(key));
            m_model.rows.erase(key);
            break;
        case 1:
            m_plain->execute("UPDATE T SET (Number, Text) = (" + literal(row) +
                             ") WHERE MSysKey = " + std::to_string(key));
            m_model.rows[key] = row;
            break;
        default:
            m_plain->execute("INSERT INTO T (Number, Text) VALUES (" + literal(row) + ")");
            m_model.rows[std::stol(m_plain->text("SELECT last_insert_rowid()"))] = row;
        }
        session().enter(sqlite::Session::Look::AtOnce);
    }

    void changeCurrentRow(Cursor& cursor, const Place& place, std::set<long>& moved) {
        if (!m_model.rows.contains(place.key)) {
            EXPECT_EQ(errorOf([&] { cursor.remove(); }).number(), runtime::errRecordDeleted);
            return;
        }
        if (pick(4) == 0) {
            cursor.remove();
            m_model.rows.erase(place.key);
            return;
        }
        const Assignment free[] = {{2, pick(1000)}};
        cursor.update(free);
        EXPECT_EQ(cursor.value(2), free[0].value);
        if (pick(2) == 0)
            return;
        const Row row = randomRow();
        const Assignment values[] = {{0, valueOf(row.number)}, {1, valueOf(row.text)}};
        cursor.update(values);
        if (m_model.byIndex && row != m_model.rows[place.key])
            moved.insert(place.key);
        m_model.rows[place.key] = row;
    }

    void changeSomething(Cursor& cursor, const Place& place, std::set<long>& moved) {
        switch (pick(8)) {
        case 0:
            changeByOtherCursor();
            break;
        case 1:
            insertByOtherCursor();
            break;
        case 2:
            changeByOtherProgram();
            break;
        case 3:
            changeCurrentRow(cursor, place, moved);
            break;
        case 4:
            store->flush();
            break;
        default:
            break;
        }
    }

    void checkRow(Cursor& cursor, const Place& place) {
        ASSERT_EQ(cursor.bookmark(), std::to_string(place.key));
        EXPECT_EQ(cursor.value(0), valueOf(place.row.number));
        EXPECT_EQ(cursor.value(1), valueOf(place.row.text));
    }

    void walk(bool byIndex) {
        m_model.byIndex = byIndex;
        const auto cursor = openCursor(*store, "T");
        cursor->setIndex(byIndex ? "Both" : "");
        std::set<long> moved;
        bool forward = true;
        ASSERT_TRUE(cursor->first());
        Place place{m_model.rows[std::stol(cursor->bookmark())], std::stol(cursor->bookmark())};
        for (int step = 0; step < 300; ++step) {
            changeSomething(*cursor, place, moved);
            if (m_model.rows.size() < 20)
                insertByOtherCursor();
            if (pick(12) == 0) {
                forward = !forward;
                moved.clear();
            }
            const auto expected = m_model.neighbour(place, forward, moved);
            const bool found = forward ? cursor->next() : cursor->previous();
            ASSERT_EQ(found, expected.has_value()) << "step " << step;
            if (!found) {
                ASSERT_EQ(forward ? cursor->first() : cursor->last(), !m_model.rows.empty());
                moved.clear();
                const long key = std::stol(cursor->bookmark());
                place = {m_model.rows[key], key};
                continue;
            }
            place = *expected;
            ASSERT_NO_FATAL_FAILURE(checkRow(*cursor, place)) << "step " << step;
        }
        EXPECT_EQ(cursor->count(), static_cast<std::int64_t>(m_model.rows.size()));
    }

    std::mt19937 m_random;
    Model m_model;
    std::unique_ptr<Cursor> m_other;
    std::unique_ptr<PlainSqlite> m_plain;
};

TEST_P(ConcurrentChanges, LoseNoRowAndRepeatNoneInStoredOrder) {
    walk(false);
}

TEST_P(ConcurrentChanges, LoseNoRowAndRepeatNoneByAnIndex) {
    walk(true);
}

TEST_P(ConcurrentChanges, LeaveTheFileIntact) {
    walk(true);
    store->flush();
    EXPECT_TRUE(m_plain->isIntact());
    EXPECT_EQ(m_plain->text("SELECT count(*) FROM T"), std::to_string(m_model.rows.size()));
}

INSTANTIATE_TEST_SUITE_P(Seeds, ConcurrentChanges, testing::Range(1, 9));

} // namespace
} // namespace tol::test
