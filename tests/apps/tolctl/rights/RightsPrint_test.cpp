// SPDX-License-Identifier: MIT
#include "RightsCase.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <sstream>

namespace tol::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class RightsPrint : public testing::Test {
  protected:
    [[nodiscard]] Outcome print(std::vector<std::string> words) const {
        words.insert(words.begin(), "print");
        words.insert(words.end(), {"--pdf", "list.pdf"});
        return m_case.run(words);
    }
    /// What another program reads in the file.
    [[nodiscard]] std::string told(const std::vector<std::string>& words) const {
        Program program("/usr/bin/" + words[0], {words.begin() + 1, words.end()}, m_case.folder().path());
        EXPECT_EQ(program.wait(), 0) << program.err();
        return program.out();
    }
    /// The lines of the printed list but for the footer, blanks between the cells as one.
    [[nodiscard]] std::vector<std::string> printed(const std::vector<std::string>& words) const {
        const Outcome outcome = print(words);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_THAT(outcome.out, IsEmpty());
        EXPECT_THAT(outcome.err, IsEmpty());
        EXPECT_THAT(told({"pdfinfo", "list.pdf"}), HasSubstr("Pages:           1"));
        std::vector<std::string> lines;
        std::istringstream text(told({"pdftotext", "-layout", "list.pdf", "-"}));
        for (std::string line; std::getline(text, line) && line.find("Module ") != 0;) {
            std::istringstream cells(line);
            std::string joined;
            for (std::string word; cells >> word;)
                joined += (joined.empty() ? "" : " ") + word;
            if (!joined.empty() && !joined.starts_with("Module Tolvane"))
                lines.push_back(joined);
        }
        return lines;
    }

    RightsCase m_case;
};

TEST_F(RightsPrint, WritesWholeTables) {
    EXPECT_THAT(printed({"modules"}),
                ElementsAre("Modules", "Module ID Description", "N Network", "P Pellin"));
    EXPECT_THAT(printed({"templates"}), ElementsAre("User Rights Templates", "URT Code Description",
                                                    "OFFICE The office", "YARD The yard"));
    EXPECT_THAT(printed({"users"}), ElementsAre("List of Users", "User No. User Name Remarks Admin?",
                                                "1 jdoe Foreman No", "2 mroe Head office Yes"));
}

TEST_F(RightsPrint, WritesTheRowsOfARecord) {
    EXPECT_THAT(printed({"items", "n"}),
                ElementsAre("User Access Items", "Module ID: N", "Description: Network",
                            "UAI Code Description Form Name", "NADD Add a site FRMNADD",
                            "NDEL Delete a site FRMNDEL"));
    EXPECT_THAT(printed({"template", "office"}),
                ElementsAre("User Rights Template Items", "URT Code: OFFICE", "Description: The office",
                            "UAI Code User Access Item Description Allowed?", "NADD Add a site Yes",
                            "NDEL Delete a site No"));
    EXPECT_THAT(printed({"user", "JDOE"}),
                ElementsAre("User Rights Items", "User Name: jdoe", "Remarks: Foreman",
                            "UAI Code User Access Item Description Allowed?", "NADD Add a site Yes",
                            "NDEL Delete a site No", "NDEL Delete a site Yes", "PADD Add a plan Yes",
                            "PADD Add a plan No"));
}

TEST_F(RightsPrint, AnItemThatIsGoneIsALineOfQuestionMarks) {
    m_case.network.accessItems.remove("UAITAG", 2);
    EXPECT_THAT(printed({"template", "OFFICE"}),
                testing::Contains(std::string(8, '?') + " " + std::string(50, '?') + " No"));
}

TEST_F(RightsPrint, WritesAsManyPagesAsItTakes) {
    std::vector<TestTable::Row> rows;
    for (int user = 100; user < 175; ++user)
        rows.push_back({user, "user" + std::to_string(user), "", false});
    m_case.network.users.add(rows);
    EXPECT_EQ(print({"users"}).status, 0); // 77 users, 37 a page
    EXPECT_THAT(told({"pdfinfo", "list.pdf"}), HasSubstr("Pages:           3"));
    EXPECT_THAT(told({"pdftotext", "-layout", "-f", "3", "list.pdf", "-"}), HasSubstr("user174"));
    EXPECT_THAT(told({"pdfinfo", "list.pdf"}), HasSubstr("Title:           List of Users"));
}

TEST_F(RightsPrint, ANameThatIsNotThereIsStatusOne) {
    for (const auto& [word, name, told] : {std::tuple{"items", "X", "module \"X\""},
                                           {"template", "NONE", "User Rights Template \"NONE\""},
                                           {"user", "nobody", "user \"nobody\""}}) {
        const Outcome outcome = print({word, name});
        EXPECT_EQ(outcome.status, 1);
        EXPECT_THAT(outcome.out, IsEmpty());
        EXPECT_EQ(outcome.err, "tolctl: there is no " + std::string(told) + ".\n");
    }
    EXPECT_FALSE(std::filesystem::exists(m_case.folder() / "list.pdf"));
}

TEST_F(RightsPrint, AListWithoutRowsIsNoFile) {
    m_case.folder().write("list.pdf", "older");
    const Outcome outcome = print({"user", "mroe"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "tolctl: the report has no page; \"list.pdf\" was not written.\n");
    EXPECT_EQ(m_case.folder().read("list.pdf"), "older");
}

TEST_F(RightsPrint, ADatabaseThatIsMissingOrDamagedIsStatusOne) {
    std::filesystem::remove(m_case.folder() / "ZOVNET.MDB");
    for (const char* word : {"modules", "templates", "users"}) {
        const Outcome outcome = print({word});
        EXPECT_EQ(outcome.status, 1);
        EXPECT_THAT(outcome.err, HasSubstr("Cannot Find the Database: "));
    }
    m_case.folder().write("ZOVNET.MDB", std::string(9000, 'x'));
    EXPECT_EQ(print({"user", "jdoe"}).status, 1);
    EXPECT_THAT(print({"user", "jdoe"}).err, HasSubstr("(error 3343)"));
    EXPECT_FALSE(std::filesystem::exists(m_case.folder() / "list.pdf"));
}

TEST_F(RightsPrint, ATableThatIsMissingIsStatusOne) {
    {
        data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
        data::Database database = workspace.OpenDatabase("ZOVNET.MDB");
        for (const char* table : {"MODULES", "USERACCESSITEMS"})
            database.TableDefs().Delete(table);
    }
    for (const std::vector<std::string>& words : std::vector<std::vector<std::string>>{
             {"modules"}, {"items", "N"}, {"template", "OFFICE"}, {"user", "jdoe"}}) {
        const Outcome outcome = print(words);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_THAT(outcome.err, HasSubstr("(error 3078)"));
    }
    EXPECT_EQ(print({"users"}).status, 0);
}

TEST_F(RightsPrint, NeedsNoDisplay) {
    const Environment display("DISPLAY", nullptr);
    const Environment wayland("WAYLAND_DISPLAY", nullptr);
    const Environment platform("QT_QPA_PLATFORM", "xcb");
    EXPECT_EQ(print({"users"}).status, 0);
    EXPECT_THAT(m_case.folder().read("list.pdf"), StartsWith("%PDF-"));
}

TEST_F(RightsPrint, WritesToItsOutput) {
    const Outcome outcome = m_case.run({"print", "--pdf", "/dev/stdout", "modules"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, StartsWith("%PDF-"));
    EXPECT_THAT(outcome.out, HasSubstr("%%EOF"));
}

TEST_F(RightsPrint, AFileThatCanNotBeWrittenIsStatusOne) {
    for (const char* file : {"missing/list.pdf", "drives", "/dev/full", ""}) {
        const Outcome outcome = m_case.run({"print", "users", "--pdf", file});
        EXPECT_EQ(outcome.status, 1) << file;
        EXPECT_THAT(outcome.err,
                    HasSubstr("The file '" + std::string(file) + "' can't be written. (error 75)\n"));
    }
}

TEST_F(RightsPrint, ACommandLineThatMakesNoSenseIsStatusTwo) {
    for (const std::vector<std::string>& words :
         std::vector<std::vector<std::string>>{{"print"},
                                               {"print", "users"},
                                               {"print", "--pdf", "list.pdf"},
                                               {"print", "nonsense", "--pdf", "list.pdf"},
                                               {"print", "items", "--pdf", "list.pdf"},
                                               {"print", "users", "jdoe", "--pdf", "list.pdf"},
                                               {"print", "user", "jdoe", "mroe", "--pdf", "list.pdf"},
                                               {"print", "users", "--pdf"}}) {
        const Outcome outcome = m_case.run(words);
        EXPECT_EQ(outcome.status, 2) << testing::PrintToString(words);
        EXPECT_THAT(outcome.out, IsEmpty());
        EXPECT_THAT(outcome.err, Not(IsEmpty()));
    }
    EXPECT_FALSE(std::filesystem::exists(m_case.folder() / "list.pdf"));
}

TEST_F(RightsPrint, AUserMayBeNamedAsAList) {
    m_case.network.users.add({{9, "users", "", false}});
    m_case.network.rights.add({{9, 1, true, 0}});
    EXPECT_THAT(printed({"user", "users"}), testing::Contains("User Name: users"));
}

} // namespace
} // namespace tol::test
