// SPDX-License-Identifier: MIT
#include "rights/model/FillFromTemplate.h"

#include "data/OpenTable.h"
#include "runtime/RuntimeError.h"
#include "support/NetworkTables.h"
#include "support/StartFolder.h"
#include "support/TestHost.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using runtime::Null;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int32_t anna = 1, berta = 2; // users
constexpr std::int32_t desk = 5, field = 6; // templates
constexpr std::int32_t byHand = 0;

class FillFromTemplate : public testing::Test {
  protected:
    FillFromTemplate() {
        net.templateItems.add({{desk, 10, true}, {desk, 11, false}, {field, 10, false}, {field, 12, true}});
    }

    std::int64_t fill(std::int32_t user, std::int32_t urt) {
        data::OpenTable rights("wksNET", NetworkTables::file, "USERRIGHTS");
        data::Recordset items = rights.database.OpenRecordset("URTITEMS");
        return rights::FillFromTemplate(rights.rows, items, {.userTag = user, .urtTag = urt},
                                        [this] { return m_goesOn; });
    }
    /// From now on the fill is stopped, or fails, at its yield of that number.
    void stopAt(int yield) {
        person.onYield = [this, yield] { m_goesOn = person.yields < yield; };
    }
    void failAt(int yield) {
        person.onYield = [this, yield] {
            if (person.yields == yield)
                runtime::raise(runtime::errDiskOrNetwork, {NetworkTables::file});
        };
    }

    StartFolder folder;
    TestHost person;
    NetworkTables net;

  private:
    bool m_goesOn = true;
};

TEST_F(FillFromTemplate, CopiesTheItemsOfTheTemplateAndNoOthers) {
    EXPECT_EQ(fill(anna, desk), 2);
    EXPECT_THAT(net.rights.rows(), ElementsAre("1|10|True|5", "1|11|False|5"));
    EXPECT_EQ(person.yields, 2) << "one for each item";
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(FillFromTemplate, TwiceGivesTheSameAsOnce) {
    fill(anna, desk);
    EXPECT_EQ(fill(anna, desk), 2);
    EXPECT_THAT(net.rights.rows(), ElementsAre("1|10|True|5", "1|11|False|5"));
}

TEST_F(FillFromTemplate, BringsOverWhatHasChangedInTheTemplate) {
    fill(anna, desk);
    net.templateItems.change("UAITAG", 11, 14);
    net.templateItems.add({{desk, 13, true}});
    EXPECT_EQ(fill(anna, desk), 3);
    EXPECT_THAT(net.rights.rows(), ElementsAre("1|10|True|5", "1|13|True|5", "1|14|False|5"));
}

TEST_F(FillFromTemplate, LeavesOtherRowsAndOtherUsersAlone) {
    net.rights.add({{anna, 10, false, byHand}, {anna, 11, true, Null{}}, {berta, 10, false, desk}});
    fill(anna, field);
    fill(anna, desk);
    EXPECT_THAT(net.rights.rows(),
                ElementsAre("1|10|False|0", "1|10|False|6", "1|10|True|5", "1|11|True|Null", "1|11|False|5",
                            "1|12|True|6", "2|10|False|5"))
        << "two templates and a hand-entered row may name the same item";
}

TEST_F(FillFromTemplate, AnEmptyTemplateClearsWhatCameFromIt) {
    net.rights.add({{anna, 10, true, 7}, {anna, 11, true, desk}});
    EXPECT_EQ(fill(anna, 7), 0);
    EXPECT_THAT(net.rights.rows(), ElementsAre("1|11|True|5"));
    EXPECT_EQ(person.yields, 0);
}

TEST_F(FillFromTemplate, NullsOfAnItemBecomeBlankValues) {
    net.templateItems.add({{8, Null{}, Null{}}});
    EXPECT_EQ(fill(anna, 8), 1);
    EXPECT_THAT(net.rights.rows(), ElementsAre("1|0|False|8"));
}

TEST_F(FillFromTemplate, StoppedItLeavesTheRowsWrittenSoFar) {
    net.rights.add({{anna, 11, true, desk}, {anna, 19, true, desk}});
    stopAt(1);
    EXPECT_EQ(fill(anna, desk), 1);
    EXPECT_THAT(net.rights.rows(), ElementsAre("1|10|True|5")) << "the old rows are gone already";
}

TEST_F(FillFromTemplate, FailedItLeavesTheRowsWrittenSoFarAndTheNextMakesItGood) {
    net.rights.add({{anna, 19, true, desk}});
    failAt(1);
    EXPECT_THROW(fill(anna, desk), runtime::RuntimeError);
    EXPECT_THAT(net.rights.rows(), ElementsAre("1|10|True|5"));
    EXPECT_EQ(fill(anna, desk), 2);
    EXPECT_THAT(net.rights.rows(), ElementsAre("1|10|True|5", "1|11|False|5"));
}

TEST_F(FillFromTemplate, OthersMayChangeTheTemplateAtAYield) {
    person.onYield = [&] {
        if (person.yields != 1)
            return;
        net.templateItems.remove("UAITAG", 11);
        net.templateItems.add({{desk, 12, true}, {desk, 9, true}});
    };
    EXPECT_EQ(fill(anna, desk), 2);
    EXPECT_THAT(net.rights.rows(), ElementsAre("1|10|True|5", "1|12|True|5"))
        << "what lies behind the item that was copied last";
}

} // namespace
} // namespace tol::test
