// SPDX-License-Identifier: MIT
#include "SharedRoutineTest.h"

#include "data/DBEngine.h"
#include "data/json/DatabaseJson.h"
#include "data/sqlite/SqliteEngine.h"
#include "shell/vdfunctions/vdBoxes.h"

namespace tol::test {

SharedRoutineTest::SharedRoutineTest() {
    static const bool added = [] {
        data::DBEngine::addEngine(std::make_unique<data::sqlite::SqliteEngine>());
        return true;
    }();
    static_cast<void>(added);
}

void SharedRoutineTest::make(const std::string& file, const std::string& table, const std::string& fields,
                             const std::string& indexes, const std::string& rows) const {
    const std::string text = R"({"tables": [{"name": ")" + table + R"(", "fields": )" + fields +
                             R"(, "indexes": )" + indexes + R"(, "rows": )" + rows + "}]}";
    data::json::makeDatabase(file, text);
}

std::string SharedRoutineTest::content(const std::string& file) {
    data::Workspace reader = data::DBEngine::CreateWorkspace("reader");
    data::Database database = reader.OpenDatabase(file);
    return data::json::databaseText(database);
}

void SharedRoutineTest::expectBox(runtime::MsgIcon icon, const std::string& title,
                                  const std::string& text) const {
    ASSERT_EQ(person.boxes.size(), 1U);
    EXPECT_EQ(person.boxes[0].title, title);
    EXPECT_EQ(person.boxes[0].text, text);
    EXPECT_EQ(person.boxes[0].style, (runtime::MsgStyle{icon, runtime::MsgButtons::Ok}));
    EXPECT_EQ(shell::gMsgTitle, title);
    EXPECT_EQ(shell::gMsgText, text);
    EXPECT_EQ(shell::gMsgResult, 1);
}

} // namespace tol::test
