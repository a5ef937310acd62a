// SPDX-License-Identifier: MIT
#include "WorkCase.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class LogTest : public testing::Test {
  protected:
    LogTest() { m_case.finish(); }

    WorkCase m_case;
};

TEST_F(LogTest, PrintsColumnsInStoredOrder) {
    ASSERT_EQ(m_case.run({"update"}).status, 0);
    const Outcome log = m_case.run({"log"});
    EXPECT_EQ(log.status, 0);
    EXPECT_THAT(log.err, IsEmpty());
    EXPECT_THAT(log.out,
                StartsWith("Job Site          Database    Table             Index             Field    "
                           "         Action                                    Date        Time\n"
                           "NORTH YARD        WORK        CREW                                NAME     "
                           "         Changed Field Size."));
    const auto first = log.out.find("Changed Field Size.");
    const auto second = log.out.find("Added New Field");
    EXPECT_LT(first, second);
    EXPECT_LT(second, log.out.find("Database Ok. No Changes Made."));
}

TEST_F(LogTest, PrintsTheRowsOfTheUpdateAsJson) {
    const Json report = m_case.run({"update", "--json"}).json();
    const Outcome log = m_case.run({"log", "--json"});
    EXPECT_EQ(log.status, 0);
    EXPECT_EQ(log.json(), report["rows"]);
    EXPECT_EQ(log.json().size(), 3U);
}

TEST_F(LogTest, AnEmptyLogIsAHeadingOrAnEmptyArray) {
    EXPECT_EQ(m_case.run({"log", "--json"}).out, "[]\n");
    const Outcome log = m_case.run({"log"});
    EXPECT_EQ(log.status, 0);
    EXPECT_EQ(std::count(log.out.begin(), log.out.end(), '\n'), 1);
}

TEST_F(LogTest, ADatabaseWithoutALogIsStatusOne) {
    std::filesystem::remove(m_case.folder / "ZOVDEF.MDB");
    m_case.load("ZOVDEF.MDB", databaseOf({}));
    const Outcome log = m_case.run({"log"});
    EXPECT_EQ(log.status, 1);
    EXPECT_THAT(log.out, IsEmpty());
    EXPECT_THAT(log.err, HasSubstr("ACTIVITYLOG"));
    EXPECT_THAT(log.err, HasSubstr("(error 3078)"));
    EXPECT_THAT(m_case.run({"log", "--json"}).out, IsEmpty());
    std::filesystem::remove(m_case.folder / "ZOVDEF.MDB");
    EXPECT_THAT(m_case.run({"log", "--json"}).out, IsEmpty());
}

#if TOL_PDF

/// What another program reads in a PDF file of the folder.
std::string told(const CaseFolder& folder, const std::vector<std::string>& words) {
    Program program("/usr/bin/" + words[0], {words.begin() + 1, words.end()}, folder.folder.path());
    EXPECT_EQ(program.wait(), 0) << program.err();
    return program.out();
}

TEST_F(LogTest, WritesTheReportToAPdfFile) {
    ASSERT_EQ(m_case.run({"update"}).status, 0);
    const Outcome log = m_case.run({"log", "--pdf", "log.pdf"});
    EXPECT_EQ(log.status, 0);
    EXPECT_THAT(log.out, IsEmpty());
    EXPECT_THAT(log.err, IsEmpty());
    const std::string text = told(m_case, {"pdftotext", "-layout", "log.pdf", "-"});
    EXPECT_THAT(text, HasSubstr("Database Definition Update Utility - Activity Log"));
    EXPECT_THAT(text, HasSubstr("Database Utilities"));
    for (const char* word : {"NORTH YARD", "WORK", "CREW", "Changed Field Size.", "Added New Field",
                             "Database Ok. No Changes Made."})
        EXPECT_THAT(text, HasSubstr(word));
    EXPECT_THAT(told(m_case, {"pdfinfo", "log.pdf"}), HasSubstr("Pages:           1"));
}

TEST_F(LogTest, WritesAnEmptyLogAsOnePage) {
    EXPECT_EQ(m_case.run({"log", "--pdf", "log.pdf"}).status, 0);
    EXPECT_THAT(told(m_case, {"pdftotext", "log.pdf", "-"}), HasSubstr("Activity Log is Empty."));
    EXPECT_THAT(told(m_case, {"pdfinfo", "log.pdf"}), HasSubstr("Pages:           1"));
}

TEST_F(LogTest, PrintsJsonBesidesThePdfFile) {
    ASSERT_EQ(m_case.run({"update"}).status, 0);
    const Outcome log = m_case.run({"log", "--json", "--pdf", "log.pdf"});
    EXPECT_EQ(log.status, 0);
    EXPECT_EQ(log.json().size(), 3U);
    EXPECT_THAT(m_case.folder.read("log.pdf"), StartsWith("%PDF-"));
}

TEST_F(LogTest, NeedsNoDisplayForThePdfFile) {
    const Environment display("DISPLAY", nullptr);
    const Environment wayland("WAYLAND_DISPLAY", nullptr);
    const Environment platform("QT_QPA_PLATFORM", "xcb");
    EXPECT_EQ(m_case.run({"log", "--pdf", "log.pdf"}).status, 0);
    EXPECT_THAT(m_case.folder.read("log.pdf"), StartsWith("%PDF-"));
}

TEST_F(LogTest, WritesThePdfFileToItsOutput) {
    const Outcome log = m_case.run({"log", "--pdf", "/dev/stdout"});
    EXPECT_EQ(log.status, 0);
    EXPECT_THAT(log.out, StartsWith("%PDF-"));
    EXPECT_THAT(log.out, HasSubstr("%%EOF"));
}

TEST_F(LogTest, APdfFileInAMissingFolderIsStatusOne) {
    m_case.folder.write("file", "");
    for (const char* file : {"missing/log.pdf", "file/log.pdf", "drives", "/dev/full", ""}) {
        const Outcome log = m_case.run({"log", "--pdf", file});
        EXPECT_EQ(log.status, 1) << file;
        EXPECT_THAT(log.out, IsEmpty());
        EXPECT_THAT(log.err,
                    HasSubstr("tolctl: The file '" + std::string(file) + "' can't be written. (error 75)\n"));
    }
}

TEST_F(LogTest, APdfFileInAFolderThatMayOnlyBeReadIsStatusOne) {
    namespace fs = std::filesystem;
    m_case.folder.write("log.pdf", "older");
    fs::permissions(m_case.folder / "log.pdf", fs::perms::owner_read);
    fs::permissions(m_case.folder.path(), fs::perms::owner_read | fs::perms::owner_exec);
    for (const char* file : {"new.pdf", "log.pdf"}) {
        Program log(TOL_CTL_PROGRAM, {"log", "--pdf", file}, m_case.folder.path(), withoutRightsOfRoot);
        EXPECT_EQ(log.wait(), 1) << file;
        EXPECT_THAT(log.err(),
                    HasSubstr("The file '" + std::string(file) + "' can't be written. (error 75)"));
    }
    fs::permissions(m_case.folder.path(), fs::perms::owner_all);
    EXPECT_EQ(m_case.folder.read("log.pdf"), "older");
    EXPECT_FALSE(fs::exists(m_case.folder / "new.pdf"));
}

TEST_F(LogTest, NoPdfFileComesFromADatabaseWithoutALog) {
    std::filesystem::remove(m_case.folder / "ZOVDEF.MDB");
    m_case.load("ZOVDEF.MDB", databaseOf({}));
    const Outcome log = m_case.run({"log", "--pdf", "log.pdf"});
    EXPECT_EQ(log.status, 1);
    EXPECT_THAT(log.err, HasSubstr("(error 3078)"));
    EXPECT_FALSE(std::filesystem::exists(m_case.folder / "log.pdf"));
}

#endif

} // namespace
} // namespace tol::test
