// SPDX-License-Identifier: MIT
#pragma once

#include "support/TestTable.h"

namespace tol::test {

/// An empty definition database with the two lists that it delivers. Its codes may be longer than those of
/// the network database.
struct DeliveredLists {
    static constexpr const char* file = "ZOVDEF.MDB";

    TestTable modules{file,
                      "MODULES",
                      {{"MODULEID", data::dbText, 3}, {"MODULENAME", data::dbText, 50}},
                      {{"MODULES", {"MODULEID"}}}};
    TestTable items{file,
                    "USERACCESSITEMS",
                    {{"UAITAG", data::dbLong},
                     {"MODULEID", data::dbText, 3},
                     {"UAICODE", data::dbText, 10},
                     {"Desc", data::dbText, 50},
                     {"FORMNAME", data::dbText, 16}},
                    {{"USERACCESSITEMS", {"MODULEID", "UAICODE"}}}};
};

} // namespace tol::test
