// SPDX-License-Identifier: MIT
#pragma once

#include "support/TestTable.h"

namespace tol::test {

/// An empty network database with the tables and indexes that the delivered one has. A test that wants
/// other tables or indexes makes its own.
struct NetworkTables {
    static constexpr const char* file = "ZOVNET.MDB";

    TestTable modules{file,
                      "MODULES",
                      {{"MODULEID", data::dbText, 3}, {"MODULENAME", data::dbText, 50}},
                      {{"MODULES", {"MODULEID"}}}};
    TestTable accessItems{file,
                          "USERACCESSITEMS",
                          {{"UAITAG", data::dbLong},
                           {"MODULEID", data::dbText, 3},
                           {"UAICODE", data::dbText, 8},
                           {"Desc", data::dbText, 50},
                           {"FORMNAME", data::dbText, 16}},
                          {{"USERACCESSITEMS", {"MODULEID", "UAICODE"}},
                           {"UAICODE", {"UAICODE"}},
                           {"UAITAG", {"UAITAG"}},
                           {"UAIDESC", {"MODULEID", "Desc"}}}};
    TestTable templates{
        file,
        "URTEMPLATES",
        {{"URTTAG", data::dbLong}, {"URTCODE", data::dbText, 8}, {"URTNAME", data::dbText, 50}},
        {{"URTCODE", {"URTCODE"}}, {"URTTAG", {"URTTAG"}}, {"URTNAME", {"URTNAME"}}}};
    TestTable templateItems{
        file,
        "URTITEMS",
        {{"URTTAG", data::dbLong}, {"UAITAG", data::dbLong}, {"ALLOWED", data::dbBoolean}},
        {{"URTITEMS", {"URTTAG", "UAITAG"}}}};
    TestTable users{file,
                    "USERLIST",
                    {{"USERTAG", data::dbLong},
                     {"UserName", data::dbText, 20},
                     {"REMARKS", data::dbText, 40},
                     {"ADMIN", data::dbBoolean}},
                    {{"USERNAME", {"UserName"}}}};
    TestTable rights{file,
                     "USERRIGHTS",
                     {{"USERTAG", data::dbLong},
                      {"UAITAG", data::dbLong},
                      {"ALLOWED", data::dbBoolean},
                      {"URTTAG", data::dbLong}},
                     {{"USERRIGHTS", {"USERTAG", "UAITAG"}}, {"URTTAG", {"USERTAG", "URTTAG"}}}};
    TestTable tags{
        file, "NETTAGS", {{"UAITAG", data::dbLong}, {"URTTAG", data::dbLong}, {"USERTAG", data::dbLong}}};
    TestTable settings{file, "NETSETTINGS", {{"MODULEID", data::dbText, 3}}};
    TestTable locks{file,
                    "RECORDLOCKS",
                    {{"TAGNO", data::dbLong},
                     {"TABLENAME", data::dbText, 20},
                     {"RLUSERNAME", data::dbText, 20},
                     {"RLTIMESTAMP", data::dbDate},
                     {"USERTAG", data::dbLong},
                     {"Session", data::dbLong}},
                    {{"RECORDLOCKS", {"TABLENAME", "TAGNO"}}}};
};

} // namespace tol::test
