// SPDX-License-Identifier: MIT
#include "Desk.h"

#include "support/NetworkTables.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using nlohmann::json;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

constexpr const char* network = "ZOVNET.MDB";

/// A network database without a row, in the program's own folder.
std::filesystem::path emptyNetworkIn(const std::filesystem::path& folder) {
    const NetworkTables tables;
    return folder;
}

// The first number that is taken makes the row of counters; the two other counters are Null then, and begin
// with 0.
class RightsJourney : public Desk {
  protected:
    RightsJourney() : Desk(emptyNetworkIn) {}

    /// Adds a record with these texts to the list in front, and waits until its row is the last one in the
    /// file.
    void add(const std::vector<std::string>& texts, const std::string& table, const json& row) const {
        display.press({"a"});
        for (const std::string& text : texts) {
            if (&text != &texts.front())
                display.press({"Tab"});
            display.type(text);
        }
        display.press({"alt+u"});
        expectLast(table, row);
    }
    void expectLast(const std::string& table, const json& row) const {
        EXPECT_TRUE(comes(network, table,
                          [&](const json& stored) { return !stored.empty() && stored.back() == row; }))
            << table << ": " << rows(network, table) << " " << tol->err();
    }
    /// Types "?" and takes the record that the letters find.
    void search(const std::string& window, const std::string& letters) const {
        display.type("?");
        ASSERT_TRUE(display.waitForWindow(window)) << tol->err();
        display.type(letters);
        display.press({"Return"});
        ASSERT_TRUE(waitFor([&] { return !display.hasWindow(window); }));
        ASSERT_TRUE(display.waitForWindow(mainTitle));
    }
    /// An item of the template or right of the user in front, found by search.
    void addFound(const std::string& letters, const std::string& allowed, const std::string& table,
                  const json& row) const {
        display.press({"a"});
        search("Search UAI Codes", letters);
        display.press({"Tab", "Tab"}); // past the button of the search
        display.type(allowed);
        display.press({"alt+u"});
        expectLast(table, row);
    }
    /// Prints the list in front to a file.
    [[nodiscard]] std::string printed(const std::string& window, const std::string& file) const {
        display.press({"alt+p"});
        EXPECT_TRUE(display.waitForWindow(window)) << tol->err();
        saveAsPdf(file);
        display.press({"Escape"});
        EXPECT_TRUE(waitFor([&] { return !display.hasWindow(window); }));
        EXPECT_TRUE(display.waitForWindow(mainTitle));
        return textOf(file);
    }

    void keepModule() const {
        open({"alt+a", "2"});
        add({"pay", "Payroll"}, "MODULES", json::array({"PAY", "Payroll"}));
        display.press({"x"});
    }
    void keepItems() const {
        open({"alt+a", "1"});
        display.press({"alt+m"});
        ASSERT_TRUE(display.waitForWindow("Select a Module")) << tol->err();
        display.press({"Return"});
        ASSERT_TRUE(display.waitForWindow(mainTitle));
        expectLast("NETSETTINGS", json::array({"PAY"}));
        add({"pyrun", "Run the payroll", "frmrun"}, "USERACCESSITEMS",
            {1, "PAY", "PYRUN", "Run the payroll", "FRMRUN"});
        add({"pyedit", "Edit a slip", "frmedit"}, "USERACCESSITEMS",
            {2, "PAY", "PYEDIT", "Edit a slip", "FRMEDIT"});
        add({"pyvoid", "Void a slip", "frmvoid"}, "USERACCESSITEMS",
            {3, "PAY", "PYVOID", "Void a slip", "FRMVOID"});
        display.press({"x"});
    }
    void keepTemplate() const {
        open({"alt+r", "2"});
        add({"clerk", "Payroll clerks"}, "URTEMPLATES", {0, "CLERK", "Payroll clerks"});
        open({"alt+b"});
        addFound("pyr", "y", "URTITEMS", {0, 1, true});
        addFound("pye", "n", "URTITEMS", {0, 2, false});
        display.press({"x", "x"});
    }
    void keepUser() const {
        open({"alt+r", "1"});
        add({"Jo", "Yard office", "n"}, "USERLIST", {0, "jo", "Yard office", false});
        open({"alt+b"});
        addFound("pyv", "y", "USERRIGHTS", {0, 3, true, nullptr});
        display.press({"alt+f"});
        ASSERT_TRUE(display.waitForWindow("Add User Rights Items from a UR Template")) << tol->err();
        display.type("?");
        ASSERT_TRUE(display.waitForWindow("Search URT Codes")) << tol->err();
        display.type("payroll");
        display.press({"Return"});
        ASSERT_TRUE(display.waitForWindow("Add User Rights Items from a UR Template"));
        display.press({"Tab", "Tab", "Return"});
        expectLast("USERRIGHTS", {0, 2, false, 0});
        ASSERT_TRUE(display.waitForWindow(mainTitle));
    }
};

TEST_F(RightsJourney, FromAnEmptyDatabaseToTheRightsOfAUserOnPaper) {
    keepModule();
    keepItems();
    keepTemplate();
    keepUser();
    const std::string text = printed("Print List of User Rights Items", "rights.pdf");
    EXPECT_THAT(text, HasSubstr("User Rights Items"));
    EXPECT_THAT(text, HasSubstr("User Name: jo"));
    EXPECT_THAT(text, HasSubstr("Remarks: Yard office"));
    EXPECT_THAT(text, ContainsRegex("PYRUN +Run the payroll +Yes\n"));
    EXPECT_THAT(text, ContainsRegex("PYEDIT +Edit a slip +No\n"));
    EXPECT_THAT(text, ContainsRegex("PYVOID +Void a slip +Yes\n"));
    EXPECT_THAT(text, Not(HasSubstr("????")));
    display.press({"x", "x"});
    leave();
    EXPECT_EQ(rows(network, "NETTAGS"), json::parse("[[4, 1, 1]]"));
    EXPECT_EQ(rows(network, "URTITEMS"), json::parse("[[0, 1, true], [0, 2, false]]"));
    EXPECT_EQ(rows(network, "USERRIGHTS"),
              json::parse("[[0, 3, true, null], [0, 1, true, 0], [0, 2, false, 0]]"));
    // The terminal program prints the same page.
    printedBy(TOL_CTL_PROGRAM, {"rights", "print", "user", "jo", "--pdf", "again.pdf"});
    const auto withoutFooter = [](const std::string& page) { return page.substr(0, page.rfind("Module ")); };
    EXPECT_EQ(withoutFooter(textOf("again.pdf")), withoutFooter(text));
}

} // namespace
} // namespace tol::test
