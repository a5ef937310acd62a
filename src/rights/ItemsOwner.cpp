// SPDX-License-Identifier: MIT
#include "rights/ItemsOwner.h"

namespace tol::rights {

const ItemsOwner templateItems{.window = "frmTOLURT02",
                               .caption = "User Rights Template Detail",
                               .table = "URTITEMS",
                               .ownerTable = "URTEMPLATES",
                               .tag = "URTTAG",
                               .lines = {{{"lblHMODULE", "URT Code:", "lblURTCODE", "URTCODE"},
                                          {nullptr, nullptr, "lblURTNAME", "URTNAME"}}},
                               .printed = PrintedList::TemplateItems,
                               .isFilled = false};

const ItemsOwner userRights{.window = "frmTOLURL02",
                            .caption = "Assign User Rights ",
                            .table = "USERRIGHTS",
                            .ownerTable = "USERLIST",
                            .tag = "USERTAG",
                            .lines = {{{"lblHMODULE", "User Name:", "lblUSERNAME", "UserName"},
                                       {"lblHREMARKS", "Remarks:", "lblREMARKS", "REMARKS"}}},
                            .printed = PrintedList::UserRights,
                            .isFilled = true};

} // namespace tol::rights
