// SPDX-License-Identifier: MIT
#include "demo_support/DemoFolder.h"
#include "platform/Paths.h"
#include "support/FileBytes.h"
#include "support/Program.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <functional>

namespace tol::test {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

void write(const fs::path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary) << bytes;
}

std::vector<std::string> namesIn(const fs::path& folder) {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
        names.push_back(entry.path().filename());
    std::ranges::sort(names);
    return names;
}

/// A way in which a database can be none, and what a program then says of it.
struct Spoilt {
    std::string name;
    std::function<void(const fs::path&)> spoil;
    std::string description; ///< "{}" stands for the file
    int number;
};

void putByte(const fs::path& file, std::size_t place, char byte) {
    std::string bytes = bytesOf(file);
    bytes.at(place) = byte;
    write(file, bytes);
}

constexpr std::size_t userVersionEnd = 63; // last byte of the format's number in the header

const std::vector<Spoilt> waysToSpoil{
    {"Missing", [](const fs::path& file) { fs::remove(file); }, "Could not find file '{}'.", 3024},
    {"FolderInItsPlace",
     [](const fs::path& file) {
         fs::remove(file);
         fs::create_directory(file);
     },
     "Cannot open or write to the file '{}': no permission, or opened exclusively by another user.", 3051},
    {"Empty", [](const fs::path& file) { write(file, ""); }, "Unrecognized database format '{}'.", 3343},
    {"Truncated", [](const fs::path& file) { fs::resize_file(file, fs::file_size(file) / 2); },
     "Cannot open database '{}'. The file may be damaged.", 3049},
    {"Text", [](const fs::path& file) { write(file, "Dear customer,\n"); },
     "Unrecognized database format '{}'.", 3343},
    {"Zeros", [](const fs::path& file) { write(file, std::string(8192, '\0')); },
     "Unrecognized database format '{}'.", 3343},
    {"LaterFormat", [](const fs::path& file) { putByte(file, userVersionEnd, 99); },
     "Unrecognized database format '{}'. It was made by a later version of this program.", 3343}};

/// A database of a Job Site is none any more.
class BadFile : public testing::TestWithParam<Spoilt> {
  protected:
    BadFile() {
        GetParam().spoil(file);
        m_names = namesIn(file.parent_path());
        m_bytes = content();
    }

    /// Whether what was there before is there still, and nothing besides.
    void expectUntouched() const {
        EXPECT_EQ(namesIn(file.parent_path()), m_names);
        EXPECT_EQ(content(), m_bytes);
    }
    [[nodiscard]] std::string sentence() const {
        return fmt::format(fmt::runtime(GetParam().description), file.string());
    }

    DemoFolder demo;
    const std::string name = R"(S:\SITES\HOLLOW\MAIN.MDB)";
    const fs::path file = platform::hostPath(name);

  private:
    [[nodiscard]] std::string content() const { return fs::is_regular_file(file) ? bytesOf(file) : "none"; }

    std::vector<std::string> m_names;
    std::string m_bytes;
};

TEST_P(BadFile, IsToldByNumberAndSentenceAndLeftAlone) {
    for (const std::string command : {"dump", "compact"}) {
        Program program(TOL_CTL_PROGRAM, {command, name}, demo.path());
        EXPECT_EQ(program.wait(), 1) << command;
        EXPECT_EQ(program.out(), "") << command;
        EXPECT_THAT(program.err(), HasSubstr("tolctl: " + sentence())) << command;
        EXPECT_THAT(program.err(), HasSubstr(fmt::format("(error {})", GetParam().number))) << command;
        expectUntouched();
    }
}

TEST_P(BadFile, DoesNotKeepARunFromTheOtherDatabases) {
    Program run(TOL_CTL_PROGRAM, {"update", "--site", "HOLLOW CREEK", "--on-unconvertible", "continue"},
                demo.path());
    const bool absent = !fs::is_regular_file(file);
    EXPECT_EQ(run.wait(), absent ? 0 : 3);
    EXPECT_THAT(run.out(), HasSubstr(absent ? "Cannot Find Database." : "Database Ok. No Changes Made."));
    if (!absent) {
        EXPECT_THAT(run.err(), HasSubstr(sentence()));
        EXPECT_THAT(run.err(),
                    HasSubstr(fmt::format("Error: {} UpdateDatabaseDefinition", GetParam().number)));
    }
    expectUntouched();
    for (const SuiteDatabase& database : demo.databases()) {
        const std::string other = demo.fileOf(database, {"HOLLOW CREEK", R"(S:\SITES\HOLLOW)"});
        if (database.name != "MAIN") {
            EXPECT_THAT(differences(definitionsOf(other), demo.wanted(database.name)), testing::IsEmpty())
                << other;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Ways, BadFile, testing::ValuesIn(waysToSpoil),
                         [](const auto& way) { return way.param.name; });

TEST(BadFiles, AFolderThatDoesNotExistIsNoPath) {
    const DemoFolder demo;
    Program program(TOL_CTL_PROGRAM, {"dump", R"(S:\SITES\NOWHERE\MAIN.MDB)"}, demo.path());
    EXPECT_EQ(program.wait(), 1);
    EXPECT_THAT(program.err(), HasSubstr("NOWHERE/MAIN.MDB' is not a valid path. (error 3044)"));
}

TEST(BadFiles, ADriveThatDoesNotExistIsNamed) {
    const DemoFolder demo;
    Program program(TOL_CTL_PROGRAM, {"dump", R"(Q:\MAIN.MDB)"}, demo.path());
    EXPECT_EQ(program.wait(), 1);
    EXPECT_THAT(program.err(), HasSubstr("(error 76)"));
    EXPECT_THAT(program.err(), HasSubstr("Q:"));
    EXPECT_THAT(program.err(), HasSubstr((demo.path() / "drives").string()));
}

} // namespace
} // namespace tol::test
