// SPDX-License-Identifier: MIT
#include "platform/Registry.h"

#include "support/Environment.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace tol::test {
namespace {

using platform::RegistryValue;
using platform::registryValue;

constexpr const char* key = R"(HKEY_LOCAL_MACHINE\SOFTWARE\Maker)";

class Registry : public testing::Test {
  protected:
    /// What a line under the key gives to the name "V".
    std::optional<RegistryValue> read(const std::string& line) const {
        folder.write("registry", "[" + std::string(key) + "]\n" + line + "\n");
        return registryValue(key, "V");
    }
    void expect(const std::string& line, std::uint32_t type, const std::string& bytes) const {
        const auto value = read(line);
        ASSERT_TRUE(value) << line;
        EXPECT_EQ(value->type, type) << line;
        EXPECT_EQ(value->bytes, bytes) << line;
    }

    TempFolder folder;
    Environment named{"TOL_REGISTRY", "registry"};
};

TEST_F(Registry, HasNothingWithoutAFile) {
    EXPECT_FALSE(registryValue(key, "V")) << "no such file";
    EXPECT_TRUE(read("\"V\"=\"x\""));
    const Environment none("TOL_REGISTRY", nullptr);
    EXPECT_FALSE(registryValue(key, "V"));
}

TEST_F(Registry, ReadsTextsNumbersAndBytes) {
    expect(R"("V"="C:\\A \"B\"\\C.EXE")", 1, std::string("C:\\A \"B\"\\C.EXE\0", 15));
    expect("\"V\"=\"\"", 1, std::string(1, '\0'));
    expect("\"V\"=dword:0001022a", 4, std::string("\x2a\x02\x01\0", 4));
    expect("\"V\"=hex:61,00", 3, std::string("a\0", 2));
    expect("\"V\"=hex(7):", 7, "");
    expect("\"V\"=hex(b):ff", 11, "\xff");
    expect("\"V\"=dword:1\r", 4, std::string("\1\0\0\0", 4));
}

TEST_F(Registry, PassesByWhatIsNoValue) {
    for (const char* line : {"V=\"x\"", "\"V\"", "\"V\"=", "\"V\"=x", "\"V\"=\"x", "\"V\"=\"x\"y",
                             "\"V\"=dword:", "\"V\"=dword:1g", "\"V\"=dword:123456789", "\"V\"=hex",
                             "\"V\"=hex:6g", "\"V\"=hex:61 62", "\"V\"=hex:100", "\"V\"=hex(7:61",
                             "\"V\"=hex(z):61", "\"V\"=\"x\\", "; \"V\"=\"x\"", ""})
        EXPECT_FALSE(read(line)) << line;
}

TEST_F(Registry, LooksUnderTheKeyAloneWithoutRegardToCase) {
    folder.write("registry", "REGEDIT4\r\n"
                             "\"V\"=\"none\"\r\n"
                             "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Makers]\r\n"
                             "\"V\"=\"theirs\"\r\n"
                             "[hkey_local_machine\\Software\\MAKER]\r\n"
                             "\"Vx\"=\"other\"\r\n"
                             "\"v\"=\"mine\"\r\n"
                             "\"V\"=\"second\"\r\n");
    EXPECT_EQ(registryValue(key, "V")->bytes, std::string("mine\0", 5));
    EXPECT_FALSE(registryValue(R"(HKEY_LOCAL_MACHINE\SOFTWARE)", "V"));
    EXPECT_FALSE(registryValue(key, "W"));
}

} // namespace
} // namespace tol::test
