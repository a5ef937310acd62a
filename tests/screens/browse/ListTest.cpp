// SPDX-License-Identifier: MIT
#include "ListTest.h"

#include "data/DBEngine.h"
#include "data/sqlite/SqliteEngine.h"
#include "runtime/RuntimeError.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdfunctions/vdRecords.h"
#include "shell/vdfunctions/vdTexts.h"

#include <fmt/core.h>

namespace tol::test {

using data::Recordset;
using screens::BrowseDescription;

namespace {

[[maybe_unused]] const bool engineAdded = [] {
    data::DBEngine::addEngine(std::make_unique<data::sqlite::SqliteEngine>());
    return true;
}();

} // namespace

ListTest::ListTest() {
    database.CreateTable(
        {"ITEMS",
         {{.name = "PARENT", .type = data::dbLong},
          {.name = "CODE", .type = data::dbText, .size = 8},
          {.name = "NAME", .type = data::dbText, .size = 20}},
         {{.name = "CODE", .fields = {"CODE"}}, {.name = "ITEMS", .fields = {"PARENT", "CODE"}}}});
    reopen = [this] { return database.OpenRecordset("ITEMS"); };
}

void ListTest::add(const std::vector<std::string>& codes, std::int32_t parentKey) {
    Recordset items = database.OpenRecordset("ITEMS");
    for (const std::string& code : codes) {
        items.AddNew();
        items.Fields("PARENT").Value(parentKey);
        items.Fields("CODE").Value(code);
        items.Fields("NAME").Value("N" + code);
        items.Update();
    }
}

void ListTest::addNumbered(int count, std::int32_t parentKey) {
    std::vector<std::string> codes;
    for (int number = 1; number <= count; ++number)
        codes.push_back(fmt::format("{:02}", number));
    add(codes, parentKey);
}

void ListTest::removeByOther(const std::string& code) {
    Recordset items = database.OpenRecordset("ITEMS");
    items.Index("CODE");
    items.Seek("=", {code});
    ASSERT_FALSE(items.NoMatch()) << code;
    items.Delete();
}

void ListTest::removeAllByOther() {
    Recordset items = database.OpenRecordset("ITEMS");
    for (; !items.AtEOF(); items.MoveNext())
        items.Delete();
}

BrowseDescription ListTest::wholeTable() {
    return {.index = "CODE",
            .columns = {{"lblCODE", "lblHCODE", "Code", 900, "CODE"},
                        {"lblNAME", "lblHNAME", " Name", 2400, "NAME"}},
            .rows = 8};
}

BrowseDescription ListTest::subset() {
    BrowseDescription description = wholeTable();
    description.index = "ITEMS";
    description.subset.keys = [this](Recordset& items) {
        return shell::KeyPairs{{parent, items.Fields("PARENT")}};
    };
    description.subset.parentIsBlank = [this] { return parent == 0; };
    return description;
}

screens::BrowseList& ListTest::make(BrowseDescription description) {
    page.emplace(description.rows, static_cast<int>(description.columns.size()));
    recordset = reopen();
    const auto note = [this](const char* what) { return [this, what] { done.emplace_back(what); }; };
    list = std::make_unique<screens::BrowseList>(
        *page, std::move(description), recordset, reopen,
        screens::BrowseActions{note("add"), note("edit"), note("delete"), note("exit")});
    return *list;
}

screens::BrowseList& ListTest::load() {
    make(wholeTable()).BrowseLoad();
    return *list;
}

void ListTest::press(int key) {
    list->BrowseKeyDown(key, 0);
}

void ListTest::press(int key, int times) {
    for (int time = 0; time < times; ++time)
        press(key);
}

std::string ListTest::codeAt(const std::string& mark) {
    if (shell::vdIsBlank(mark))
        return "";
    Recordset items = database.OpenRecordset("ITEMS");
    try {
        items.Bookmark(mark);
    } catch (const runtime::RuntimeError&) {
        return "?";
    }
    return shell::vdNullCheckText(items.Fields("CODE"));
}

} // namespace tol::test
