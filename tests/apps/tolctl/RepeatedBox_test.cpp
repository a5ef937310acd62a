// SPDX-License-Identifier: MIT
#include "tolctl/RepeatedBox.h"

#include <gtest/gtest.h>

namespace tol::test {
namespace {

class RepeatedBoxTest : public testing::Test {
  protected:
    bool shown(const std::string& place = "P", const std::string& text = "T") {
        m_boxes.yielded();
        return m_boxes.shown(place, "Error", text);
    }

    ctl::RepeatedBox m_boxes;
};

TEST_F(RepeatedBoxTest, NoticesTheThirdInARow) {
    EXPECT_FALSE(shown());
    EXPECT_FALSE(shown());
    EXPECT_FALSE(m_boxes.exhausted("Error", "T"));
    EXPECT_TRUE(shown());
    EXPECT_TRUE(m_boxes.exhausted("Error", "T"));
    EXPECT_FALSE(m_boxes.exhausted("Error", "U"));
    EXPECT_FALSE(m_boxes.exhausted("Warning", "T"));
}

TEST_F(RepeatedBoxTest, AnotherTextBeginsAnew) {
    EXPECT_FALSE(shown());
    EXPECT_FALSE(shown());
    EXPECT_FALSE(shown("P", "U"));
    EXPECT_FALSE(shown());
    EXPECT_FALSE(shown());
    EXPECT_TRUE(shown());
}

TEST_F(RepeatedBoxTest, AnotherPlaceBeginsAnew) {
    EXPECT_FALSE(shown("P"));
    EXPECT_FALSE(shown("Q"));
    EXPECT_FALSE(shown("P"));
    EXPECT_FALSE(shown("P"));
    EXPECT_TRUE(shown("P"));
}

TEST_F(RepeatedBoxTest, AnotherTitleBeginsAnew) {
    EXPECT_FALSE(shown());
    EXPECT_FALSE(shown());
    m_boxes.yielded();
    EXPECT_FALSE(m_boxes.shown("P", "Warning", "T"));
}

TEST_F(RepeatedBoxTest, BoxesWithoutAYieldBetweenCountOnce) {
    for (int i = 0; i < 10; ++i)
        EXPECT_FALSE(m_boxes.shown("P", "Error", "T"));
    EXPECT_FALSE(shown());
    EXPECT_TRUE(shown());
}

} // namespace
} // namespace tol::test
