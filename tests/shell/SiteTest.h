// SPDX-License-Identifier: MIT
#pragma once

#include "support/StartFolder.h"
#include "support/TestTable.h"

namespace tol::test {

/// A database with the table SITEINFO.
inline TestTable siteTable(const std::string& file) {
    return {file,
            "SITEINFO",
            {{"CONAME", data::dbText, 50},
             {"ADDRESS1", data::dbText, 50},
             {"ADDRESS2", data::dbText, 50},
             {"CITY", data::dbText, 20},
             {"State", data::dbText, 2},
             {"ZIP", data::dbText, 5},
             {"PLUS4", data::dbText, 4},
             {"LOCATIONNO", data::dbInteger}}};
}

/// The row of a company that has a value for each field.
inline const TestTable::Row wholeSite = {"Acme Works", "1 High Street", "Rear Yard", "Springfield",
                                         "IL",         "62701",         "1234",      100};

} // namespace tol::test
