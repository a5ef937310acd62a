// SPDX-License-Identifier: MIT
#include "SearchTest.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using namespace search_print;
using testing::ElementsAre;
using testing::IsEmpty;

using frmvdSearchTest = SearchTest;

TEST_F(frmvdSearchTest, FindsByTypingAndHandsBackTheRecord) {
    addNumbered(20);
    const std::string mark = search(parts(), [&] {
        EXPECT_EQ(page().size(), 12U);
        EXPECT_EQ(highlight(), 0);
        type("P15");
        EXPECT_EQ(desk->text("lblSearch"), "p15");
        EXPECT_THAT(page(), ElementsAre("P15|NAME 15|15.00|-", "P16|NAME 16|16.00|-", "P17|NAME 17|17.00|-",
                                        "P18|NAME 18|18.00|-", "P19|NAME 19|19.00|-", "P20|NAME 20|20.00|-"));
        EXPECT_EQ(highlight(), 0);
        desk->keepPicture("search");
        press(Qt::Key_Return);
    });
    EXPECT_EQ(codeAt(mark), "P15");
    EXPECT_THAT(person.boxes, IsEmpty());
}

} // namespace
} // namespace tol::test
