// SPDX-License-Identifier: MIT
#include "shell/SystemInformation.h"

#include "support/Environment.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace tol::test {
namespace {

class KeyValue : public testing::Test {
  protected:
    /// What the value is read as; "missing" where it can't be read.
    std::string read(const std::string& value) const {
        folder.write("registry", "[KEY]\n\"V\"=" + value + "\n");
        std::string result = "before";
        if (shell::GetKeyValue("KEY", "V", result))
            return result;
        EXPECT_EQ(result, "");
        return "missing";
    }

    TempFolder folder;
    Environment registry{"TOL_REGISTRY", "registry"};
};

TEST_F(KeyValue, IsATextAsItStands) {
    EXPECT_EQ(read(R"(" C:\\A b ")"), " C:\\A b ");
    EXPECT_EQ(read("hex(1):61,62"), "ab") << "stored without a NUL";
    EXPECT_EQ(read("hex(1):61,62,00"), "ab");
    EXPECT_EQ(read(R"("")"), "");
}

TEST_F(KeyValue, IsANumberInFigures) {
    EXPECT_EQ(read("dword:0000002a"), "42");
    EXPECT_EQ(read("dword:00010203"), "66051");
    EXPECT_EQ(read("dword:00000000"), "0");
    EXPECT_EQ(read("dword:ffffffff"), "-1");
}

TEST_F(KeyValue, IsEmptyForAnyOtherType) {
    EXPECT_EQ(read("hex:61"), "");
    EXPECT_EQ(read("hex(7):61,00"), "");
}

TEST_F(KeyValue, IsMissingWhenItIsNotThereOrTooLong) {
    EXPECT_EQ(read("nothing"), "missing");
    EXPECT_EQ(read('"' + std::string(1023, 'x') + '"'), std::string(1023, 'x'));
    EXPECT_EQ(read('"' + std::string(1024, 'x') + '"'), "missing");
    std::string value = "before";
    EXPECT_FALSE(shell::GetKeyValue("OTHER", "V", value));
    EXPECT_EQ(value, "");
}

} // namespace
} // namespace tol::test
