// SPDX-License-Identifier: MIT
#include "WorkCase.h"

namespace tol::test {

using namespace nlohmann::literals;

WorkCase::WorkCase() : m_fields(R"([["TAG", 4, 4], ["NAME", 10, 8]])"_json) {
    m_rows = R"([[1, "Ada"], [2, "Bo"], [3, null]])"_json;
    addSite("NORTH YARD", "C:\\NORTH");
    addDatabase("WORK");
    want("WORK", "CREW", "TAG", 4, 4);
    want("WORK", "CREW", "NAME", 10, 20);
    want("WORK", "CREW", "NOTE", 12, 0);
}

void WorkCase::addField(const std::string& name, int type, const Json& values, int wantedType,
                        int wantedSize) {
    m_fields.push_back(Json::array({name, type, type == 10 ? 10 : 0}));
    for (std::size_t row = 0; row < m_rows.size(); ++row)
        m_rows[row].push_back(values[row]);
    want("WORK", "CREW", name, wantedType, wantedSize);
}

void WorkCase::finish() {
    CaseFolder::finish();
    load("drives/c/NORTH/WORK.MDB", databaseOf({tableOf("CREW", m_fields, m_rows)}));
}

std::vector<std::string> actionsOf(const Json& report) {
    std::vector<std::string> actions;
    for (const Json& row : report["rows"])
        actions.push_back(row["Action"]);
    return actions;
}

} // namespace tol::test
