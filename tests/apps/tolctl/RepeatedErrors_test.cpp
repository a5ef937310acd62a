// SPDX-License-Identifier: MIT
#include "tolctl/RepeatedErrors.h"

#include <gtest/gtest.h>

namespace tol::test {
namespace {

class RepeatedErrorsTest : public testing::Test {
  protected:
    const update::ReportedError m_error{"ModifyTable", 3259, "NORTH", "WORK", "CREW", "PAY"};
    ctl::RepeatedErrors m_errors;
};

TEST_F(RepeatedErrorsTest, NoticesTheThirdOneWhateverComesBetween) {
    update::ReportedError other = m_error;
    other.procedure = "ConvertFieldType";
    EXPECT_FALSE(m_errors.isRepeated(m_error));
    EXPECT_FALSE(m_errors.isRepeated(other));
    EXPECT_FALSE(m_errors.isRepeated(m_error));
    EXPECT_FALSE(m_errors.isRepeated(other));
    EXPECT_TRUE(m_errors.isRepeated(m_error));
    EXPECT_TRUE(m_errors.isRepeated(m_error));
}

TEST_F(RepeatedErrorsTest, CountsEachPlaceForItself) {
    for (std::string update::ReportedError::*part :
         {&update::ReportedError::PATHNAME, &update::ReportedError::DBNAME, &update::ReportedError::TABLENAME,
          &update::ReportedError::FIELDNAME}) {
        update::ReportedError elsewhere = m_error;
        elsewhere.*part = "OTHER";
        EXPECT_FALSE(m_errors.isRepeated(elsewhere));
    }
    EXPECT_FALSE(m_errors.isRepeated(m_error));
    EXPECT_FALSE(m_errors.isRepeated(m_error));
    EXPECT_TRUE(m_errors.isRepeated(m_error));
}

} // namespace
} // namespace tol::test
