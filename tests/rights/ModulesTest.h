// SPDX-License-Identifier: MIT
#pragma once

#include "rights/frmTOLMOD01.h"
#include "support/ListWindowTest.h"

#include <memory>
#include <string>
#include <vector>

namespace tol::test {

/// Base of tests of the Modules window over a network database of one table.
class Modules : public ListWindowTest {
  protected:
    Modules() : ListWindowTest({"MODULEID", "MODULENAME"}) {}

    void open() { show(std::make_unique<rights::frmTOLMOD01>("")); }
    void openWith(const std::vector<TestTable::Row>& rows) {
        table.add(rows);
        open();
    }
    void expectRefusal(const std::string& text) const {
        expectBox(text, QMessageBox::Critical, "Cannot Update Record");
    }

    TestTable table{"ZOVNET.MDB",
                    "MODULES",
                    {{"MODULEID", data::dbText, 3}, {"MODULENAME", data::dbText, 50}},
                    {{"MODULES", {"MODULEID"}, true}}};
};

/// Codes "A" to "G", as many as the page has rows.
inline std::vector<TestTable::Row> sevenModules() {
    std::vector<TestTable::Row> rows;
    for (const char* code : {"A", "B", "C", "D", "E", "F", "G"})
        rows.push_back({code, std::string("Module ") + code});
    return rows;
}

} // namespace tol::test
