// SPDX-License-Identifier: MIT
#include "EngineTest.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstddef>
#include <random>

namespace tol::test {
namespace {

using namespace data;
using Move = bool (Cursor::*)();

constexpr std::size_t pageSize = 4096;
constexpr char tableLeaf = 0x0d;
constexpr char indexLeaf = 0x0a;
constexpr int rows = 3000;

struct Walk {
    const char* index;
    Move start, step;
};
constexpr Walk walks[] = {
    {"", &Cursor::first, &Cursor::next},       {"", &Cursor::last, &Cursor::previous},
    {"ById", &Cursor::first, &Cursor::next},   {"ById", &Cursor::last, &Cursor::previous},
    {"ByName", &Cursor::first, &Cursor::next}, {"ByName", &Cursor::last, &Cursor::previous},
};

/// Files whose rows or keys do not lie in their order: every walk ends all the same.
class DamagedWalks : public EngineTest {
  protected:
    DamagedWalks() {
        makeTable(*store);
        addRows(*store, "T", 1, rows);
        store.reset();
        sound = folder.read(file());
    }

    [[nodiscard]] std::vector<std::size_t> pagesOf(char type) const {
        std::vector<std::size_t> pages;
        for (std::size_t page = pageSize; page < sound.size(); page += pageSize) {
            if (sound[page] == type)
                pages.push_back(page);
        }
        return pages;
    }

    /// Writes the file as these bytes and walks.
    void walkOver(const std::string& bytes, const Walk& walk) {
        met = 0;
        store.reset();
        folder.write("A.MDB", bytes);
        store = engine.open(file(), false);
        const auto cursor = openCursor(*store, "T");
        cursor->setIndex(walk.index);
        for (bool row = (*cursor.*walk.start)(); row; row = (*cursor.*walk.step)()) {
            if (++met > 40 * rows)
                ADD_FAILURE() << "no end by '" << walk.index << "'";
            if (HasFailure())
                break;
        }
    }

    void expectDamageAtOnce(const std::string& bytes, const Walk& walk) {
        const runtime::RuntimeError error = errorOf([&] { walkOver(bytes, walk); });
        EXPECT_EQ(error.number(), 3049) << met << " rows by '" << walk.index << "'";
        EXPECT_THAT(error.description(), testing::HasSubstr(file().native()));
        EXPECT_EQ(met, 0);
    }

    std::string sound;
    int met = 0; ///< rows of the last walk
};

TEST_F(DamagedWalks, SoundFileIsWalkedToItsEnd) {
    for (const Walk& walk : walks) {
        walkOver(sound, walk);
        EXPECT_EQ(met, rows) << walk.index;
    }
}

TEST_F(DamagedWalks, RowsOutOfOrderAreNoticedAtOnce) {
    std::string bytes = sound;
    for (const std::size_t page : pagesOf(tableLeaf)) {
        const auto cells = static_cast<std::ptrdiff_t>(static_cast<unsigned char>(bytes[page + 3]) * 256 +
                                                       static_cast<unsigned char>(bytes[page + 4]));
        const auto pointers = bytes.begin() + static_cast<std::ptrdiff_t>(page) + 8;
        for (std::ptrdiff_t low = 0, high = cells - 1; low < high; ++low, --high)
            std::swap_ranges(pointers + 2 * low, pointers + 2 * low + 2, pointers + 2 * high);
    }
    expectDamageAtOnce(bytes, walks[0]);
    expectDamageAtOnce(bytes, walks[1]);
}

TEST_F(DamagedWalks, ZeroedRowsAreNoticedAtOnce) {
    std::string bytes = sound;
    for (const std::size_t page : pagesOf(tableLeaf)) {
        const std::size_t content = static_cast<unsigned char>(bytes[page + 5]) * std::size_t{256} +
                                    static_cast<unsigned char>(bytes[page + 6]);
        std::fill_n(bytes.begin() + static_cast<std::ptrdiff_t>(page + content), pageSize - content, '\0');
    }
    expectDamageAtOnce(bytes, walks[0]);
}

/// Pages of the same kind that have changed places: some walks meet their rows again and again.
TEST_F(DamagedWalks, ExchangedPagesEndEveryWalk) {
    std::mt19937 random(7);
    int damaged = 0;
    for (const char type : {tableLeaf, indexLeaf}) {
        const std::vector<std::size_t> pages = pagesOf(type);
        for (int trial = 0; trial < 60; ++trial) {
            std::string bytes = sound;
            const auto any = [&] { return pages[random() % pages.size()]; };
            for (int pair = 0; pair <= trial % 3; ++pair) {
                const std::size_t one = any(), other = any();
                if (one != other)
                    std::swap_ranges(bytes.begin() + static_cast<std::ptrdiff_t>(one),
                                     bytes.begin() + static_cast<std::ptrdiff_t>(one + pageSize),
                                     bytes.begin() + static_cast<std::ptrdiff_t>(other));
            }
            for (const Walk& walk : walks) {
                const runtime::RuntimeError error = errorOf([&] { walkOver(bytes, walk); });
                damaged += error.number() == 3049 ? 1 : 0;
                ASSERT_FALSE(HasFailure()) << "trial " << trial << " by '" << walk.index << "'";
            }
        }
    }
    EXPECT_GT(damaged, 60);
}

} // namespace
} // namespace tol::test
