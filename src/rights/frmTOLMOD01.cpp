// SPDX-License-Identifier: MIT
#include "rights/frmTOLMOD01.h"

#include "rights/ListReportWindow.h"
#include "runtime/Text.h"
#include "screens/EditChecks.h"
#include "shell/vdfunctions/vdLocation.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdfunctions/vdTexts.h"

#include <fmt/format.h>

namespace tol::rights {
namespace {

std::string question(data::Recordset& module) {
    return fmt::format("OK to Delete Module Code {} {}?", shell::vdNullCheckText(module.Fields("MODULEID")),
                       runtime::trim(shell::vdNullCheckText(module.Fields("MODULENAME"))));
}

screens::ListWindowDescription description() {
    return {
        .name = "frmTOLMOD01",
        .caption = "Modules",
        .table = "MODULES",
        .list = {.index = "MODULES",
                 .columns = {{.label = "lblMODULEID",
                              .headingLabel = "lblHMODULEID",
                              .heading = "Code",
                              .width = 900,
                              .field = "MODULEID"},
                             {.label = "lblMODULENAME",
                              .headingLabel = "lblHMODULENAME",
                              .heading = " Module Name",
                              .width = 5700,
                              .field = "MODULENAME"}}},
        .edit = {.fields = {{.box = "txtMODULEID",
                             .field = "MODULEID",
                             .column = 0,
                             .maxLength = 3,
                             .title = "Code",
                             .check =
                                 screens::uniqueKeyCheck("MODULES", "Empty Module Code Detected",
                                                         "Duplicate Module Code Detected.\n"
                                                         "The Module Code you have entered already exists.")},
                            {.box = "txtMODULENAME",
                             .field = "MODULENAME",
                             .column = 1,
                             .maxLength = 50,
                             .title = "Module Name",
                             .check = screens::requiredCheck("Blank Module Name Detected.")}},
                 .deleteQuestion = question},
    };
}

} // namespace

frmTOLMOD01::frmTOLMOD01(std::string netPath) : ListWindow(description()), sNetPath(std::move(netPath)) {}

std::string frmTOLMOD01::databaseFile() {
    return shell::vdNetPath(sNetPath, false);
}

void frmTOLMOD01::cmdPrint_Click() {
    if (shell::vdNotBlank(list().currentMark()))
        printList(*this, PrintedList::Modules, sNetPath);
    panel().takeFocus();
}

} // namespace tol::rights
