// SPDX-License-Identifier: MIT
#include "rights/frmTOLURL01.h"

#include "forms/controls/TextBox.h"
#include "rights/AssignedItems.h"
#include "rights/ListReportWindow.h"
#include "rights/model/DeleteRows.h"
#include "rights/model/NextTag.h"
#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "screens/EditChecks.h"
#include "shell/vdfunctions/vdLocation.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdfunctions/vdTexts.h"

#include <fmt/format.h>

namespace tol::rights {
namespace {

/// The suite knows users by numbers of 16 bits: a larger one is an overflow.
std::string userNumber(data::Recordset& user) {
    return std::to_string(runtime::toInteger(shell::vdNullCheck(user.Fields("USERTAG"))));
}

bool isAdmin(data::Recordset& user) {
    return runtime::toBoolean(shell::vdNullCheck(user.Fields("ADMIN")));
}

std::string question(data::Recordset& user) {
    return fmt::format("OK to Delete User: {}\n and All Related Detail?",
                       runtime::trim(shell::vdNullCheckText(user.Fields("UserName"))));
}

} // namespace

frmTOLURL01::frmTOLURL01(std::string netPath) : ListWindow(description()), sNetPath(std::move(netPath)) {}

screens::ListWindowDescription frmTOLURL01::description() {
    return {
        .name = "frmTOLURL01",
        .caption = "User List (Assign User Rights)",
        .table = "USERLIST",
        .list = {.index = "USERNAME",
                 .columns = {{.label = "lblUSERTAG",
                              .headingLabel = "lblHUSERTAG",
                              .heading = "User Number",
                              .width = 1500,
                              .text = userNumber},
                             {.label = "lblUSERNAME",
                              .headingLabel = "lblHUSERNAME",
                              .heading = " User Name",
                              .width = 2400,
                              .field = "UserName"},
                             {.label = "lblREMARKS",
                              .headingLabel = "lblHREMARKS",
                              .heading = " Remarks",
                              .width = 4500,
                              .field = "REMARKS"},
                             {.label = "lblADMIN",
                              .headingLabel = "lblHADMIN",
                              .heading = "Admin.?",
                              .width = 900,
                              .text = [](auto& user) { return isAdmin(user) ? "Yes" : "No"; }}},
                 .descriptionColumn = 2},
        .edit = edit(),
        .commands = {{.name = "cmdDetail",
                      .caption = "&Browse User Rights",
                      .click = [this] { cmdDetail_Click(); }}},
    };
}

screens::EditDescription frmTOLURL01::edit() {
    return {
        .fields =
            {{.box = "txtUSERNAME",
              .field = "UserName",
              .column = 1,
              .maxLength = 20,
              .title = "User Name",
              .check = screens::uniqueKeyCheck("USERNAME", "Empty User Name Detected",
                                               "Duplicate User Name Detected.\n"
                                               "The User Name you have entered already exists.",
                                               runtime::lowerCase)},
             {.box = "txtREMARKS", .field = "REMARKS", .column = 2, .maxLength = 40, .title = "Remarks"},
             {.box = "txtADMIN",
              .column = 3,
              .maxLength = 1,
              .title = "Administrator",
              .check =
                  screens::yesNoCheck("Blank 'ADMIN?' Option Detected.", "'ADMIN' Option Must Be 'Y/N'."),
              .read = [](auto& user) { return isAdmin(user) ? "Y" : "N"; }}},
        .added =
            [this] {
                return screens::AddedValues{{"USERTAG", NextTag(m_tags, "USERTAG")}};
            },
        .write = [this](data::Recordset& user,
                        screens::EditMode) { user.Fields("ADMIN").Value(editCycle().box(2).Text() == "Y"); },
        .deleteQuestion = question,
        .deleteDependents = [this](data::Recordset& user) { deleteRights(user); }};
}

std::string frmTOLURL01::databaseFile() {
    std::string file = shell::vdNetPath(sNetPath, false);
    if (file == "ERROR")
        throw runtime::RuntimeError(0, "Invalid Network Database Location Detected.");
    return file;
}

void frmTOLURL01::openMore(data::Database& database) {
    m_rights = database.OpenRecordset("USERRIGHTS");
    m_tags = database.OpenRecordset("NETTAGS");
}

void frmTOLURL01::deleteRights(data::Recordset& user) {
    deleteRows(m_rights, "USERRIGHTS", {{user.Fields("USERTAG").Value(), m_rights.Fields("USERTAG")}});
}

void frmTOLURL01::cmdDetail_Click() {
    if (list().goToCurrent())
        AssignedItems::showFor(*this, userRights, sNetPath, list().currentMark());
}

void frmTOLURL01::cmdPrint_Click() {
    if (shell::vdNotBlank(list().currentMark()))
        printList(*this, PrintedList::Users, sNetPath);
    panel().takeFocus();
}

} // namespace tol::rights
