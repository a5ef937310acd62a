// SPDX-License-Identifier: MIT
#include "rights/frmTOLURT01.h"

#include "rights/AssignedItems.h"
#include "rights/ListReportWindow.h"
#include "rights/model/DeleteRows.h"
#include "rights/model/NextTag.h"
#include "runtime/Text.h"
#include "screens/EditChecks.h"
#include "shell/vdfunctions/vdLocation.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdfunctions/vdTexts.h"

#include <fmt/format.h>

namespace tol::rights {
namespace {

std::string question(data::Recordset& urTemplate) {
    return fmt::format("OK to Delete User Rights Template: \n{} - {}\n and All Related Detail?",
                       runtime::trim(shell::vdNullCheckText(urTemplate.Fields("URTCODE"))),
                       runtime::trim(shell::vdNullCheckText(urTemplate.Fields("URTNAME"))));
}

} // namespace

frmTOLURT01::frmTOLURT01(std::string netPath) : ListWindow(description()), sNetPath(std::move(netPath)) {}

screens::ListWindowDescription frmTOLURT01::description() {
    return {
        .name = "frmTOLURT01",
        .caption = "User Rights Templates",
        .table = "URTEMPLATES",
        .list = {.index = "URTCODE",
                 .columns = {{.label = "lblURTCODE",
                              .headingLabel = "lblHURTCODE",
                              .heading = "URT Code",
                              .width = 1500,
                              .field = "URTCODE"},
                             {.label = "lblURTNAME",
                              .headingLabel = "lblHURTNAME",
                              .heading = " Template Description",
                              .width = 6600,
                              .field = "URTNAME"}}},
        .edit = {
            .fields = {{.box = "txtURTCODE",
                        .field = "URTCODE",
                        .column = 0,
                        .maxLength = 8,
                        .title = "URT Code",
                        .check = screens::uniqueKeyCheck(
                            "URTCODE", "Empty User Rights Template Code Detected",
                            "Duplicate User Rights Template Code Detected.\n"
                            "The User Rights Template Code you have entered already exists.")},
                       {.box = "txtURTNAME",
                        .field = "URTNAME",
                        .column = 1,
                        .maxLength = 50,
                        .title = "Template Description",
                        .check = screens::requiredCheck("Blank User Rights Template Description Detected.")}},
            .added =
                [this] {
                    return screens::AddedValues{{"URTTAG", NextTag(m_tags, "URTTAG")}};
                },
            .deleteQuestion = question,
            .deleteDependents = [this](data::Recordset& urTemplate) { deleteItems(urTemplate); }},
        .commands = {{.name = "cmdDetail",
                      .caption = "&Browse URT Detail",
                      .click = [this] { cmdDetail_Click(); }}},
    };
}

std::string frmTOLURT01::databaseFile() {
    return shell::vdNetPath(sNetPath, false);
}

void frmTOLURT01::openMore(data::Database& database) {
    m_items = database.OpenRecordset("URTITEMS");
    m_tags = database.OpenRecordset("NETTAGS");
}

void frmTOLURT01::deleteItems(data::Recordset& urTemplate) {
    deleteRows(m_items, "URTITEMS", {{urTemplate.Fields("URTTAG").Value(), m_items.Fields("URTTAG")}});
}

void frmTOLURT01::cmdDetail_Click() {
    if (list().goToCurrent())
        AssignedItems::showFor(*this, templateItems, sNetPath, list().currentMark());
}

void frmTOLURT01::cmdPrint_Click() {
    if (shell::vdNotBlank(list().currentMark()))
        printList(*this, PrintedList::Templates, sNetPath);
    panel().takeFocus();
}

} // namespace tol::rights
