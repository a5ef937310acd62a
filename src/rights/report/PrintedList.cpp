// SPDX-License-Identifier: MIT
#include "rights/report/PrintedList.h"

namespace tol::rights {
namespace {

constexpr PrintedColumn moduleColumns[] = {{"Module ID", 1500, "MODULEID", true},
                                           {"Description", 5000, "MODULENAME", false}};
constexpr PrintedColumn itemColumns[] = {{"UAI Code", 1500, "UAICODE", true},
                                         {"Description", 5000, "Desc", false},
                                         {"Form Name", 1200, "FORMNAME", true}};
constexpr PrintedColumn templateColumns[] = {{"URT Code", 1500, "URTCODE", true},
                                             {"Description", 5000, "URTNAME", false}};
constexpr PrintedColumn userColumns[] = {{"User No.", 1000, "USERTAG", true},
                                         {"User Name", 1500, "UserName", true},
                                         {"Remarks", 5000, "REMARKS", false},
                                         {"Admin?", 1500, "ADMIN", true, true}};
constexpr PrintedColumn allowedColumns[] = {{"UAI Code", 1500, "UAICODE", true, false, 8},
                                            {"User Access Item Description", 5000, "Desc", false, false, 50},
                                            {"Allowed?", 1200, "ALLOWED", true, true}};

constexpr ListOwner module{"MODULES",    "MODULES",  "MODULEID",
                           "MODULENAME", "MODULEID", {" Module ID: ", "Description: "}};
constexpr ListOwner rightsTemplate{"URTEMPLATES", "URTCODE", "URTCODE",
                                   "URTNAME",     "URTTAG",  {" URT Code: ", "Description: "}};
constexpr ListOwner user{"USERLIST", "USERNAME", "UserName",
                         "REMARKS",  "USERTAG",  {"User Name: ", "    Remarks: "}};

/// In the order of PrintedList.
constexpr PrintedListDescription lists[] = {
    {"frmTOLMOD02", "Print the List of Modules", "Modules", "MODULES", "MODULES", 2200, moduleColumns},
    {"frmTOLUAI02", "Print List of User Access Items", "User Access Items", "USERACCESSITEMS",
     "USERACCESSITEMS", 1800, itemColumns, &module},
    {"frmTOLURT03", "Print the List of User Rights Templates", "User Rights Templates", "URTEMPLATES",
     "URTCODE", 2200, templateColumns},
    {"frmTOLURT04", "Print List of User Rights Template Items", "User Rights Template Items", "URTITEMS",
     "URTITEMS", 1800, allowedColumns, &rightsTemplate},
    // Its caption names the templates too.
    {"frmTOLURL03", "Print the List of User Rights Templates", "List of Users", "USERLIST", "USERNAME", 1200,
     userColumns},
    {"frmTOLURL04", "Print List of User Rights Items", "User Rights Items", "USERRIGHTS", "USERRIGHTS", 1800,
     allowedColumns, &user},
};

} // namespace

const PrintedListDescription& describe(PrintedList list) {
    return lists[static_cast<std::size_t>(list)];
}

} // namespace tol::rights
