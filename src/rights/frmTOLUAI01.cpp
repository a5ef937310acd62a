// SPDX-License-Identifier: MIT
#include "rights/frmTOLUAI01.h"

#include "forms/controls/Controls.h"
#include "rights/ListReportWindow.h"
#include "rights/frmTOLMODSEL.h"
#include "rights/model/NextTag.h"
#include "rights/model/SelectedModule.h"
#include "runtime/Text.h"
#include "screens/EditChecks.h"
#include "search_print/vdSearchPresets.h"
#include "shell/vdfunctions/vdLocation.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdfunctions/vdTexts.h"

#include <QLabel>

#include <fmt/format.h>

namespace tol::rights {
namespace {

constexpr int lineHeight = 315, headingWidth = 900, codeWidth = 600, nameWidth = 5700; // twips

std::string question(data::Recordset& item) {
    return fmt::format("OK to Delete User Access Item: {} {}?",
                       runtime::trim(shell::vdNullCheckText(item.Fields("UAICODE"))),
                       runtime::trim(shell::vdNullCheckText(item.Fields("Desc"))));
}

} // namespace

frmTOLUAI01::frmTOLUAI01(std::string netPath) : ListWindow(description()), sNetPath(std::move(netPath)) {
    int left = margin;
    const auto addNext = [&](const char* name, const char* caption, int width) {
        QLabel& label = forms::addLabel(*this, name, caption, {left, margin, width, lineHeight});
        left += width;
        return &label;
    };
    addNext("lblHMODULE", "Module:", headingWidth);
    lblMODULEID = addNext("lblMODULEID", "", codeWidth);
    lblMODULENAME = addNext("lblMODULENAME", "", nameWidth);
}

screens::ListWindowDescription frmTOLUAI01::description() {
    return {
        .name = "frmTOLUAI01",
        .caption = "User Access Items",
        .table = "USERACCESSITEMS",
        .list = {.index = "USERACCESSITEMS",
                 .columns = {{.label = "lblUAICODE",
                              .headingLabel = "lblHUAICODE",
                              .heading = "UAI Code",
                              .width = 1500,
                              .field = "UAICODE"},
                             {.label = "lblDESC",
                              .headingLabel = "lblHDESC",
                              .heading = " Description",
                              .width = 5190,
                              .field = "Desc"},
                             {.label = "lblFORMNAME",
                              .headingLabel = "lblHFORMNAME",
                              .heading = " Form Name",
                              .width = 2100,
                              .field = "FORMNAME"}},
                 .subset = {.keys = [this](auto& items) { return ofModule(items); },
                            .parentIsBlank = [this] { return !hasModule(); },
                            .textWithoutParent = "Select A Module First."}},
        .edit = edit(),
        .commands = {{.name = "cmdSearch",
                      .caption = "&Search",
                      .toolTip = "Finds an item of the module",
                      .click = [this] { cmdSearch_Click(); },
                      .whileEditing = false},
                     {.name = "cmdSelect",
                      .caption = "Select &Module",
                      .toolTip = "Lists the User Access Items of another module",
                      .click = [this] { cmdSelect_Click(); },
                      .whileEditing = false}},
        .headerHeight = lineHeight + margin,
    };
}

screens::EditDescription frmTOLUAI01::edit() {
    return {
        .fields = {{.box = "txtUAICODE",
                    .field = "UAICODE",
                    .column = 0,
                    .maxLength = 8,
                    .title = "UAI Code",
                    .check = screens::requiredCheck("Blank Code Detected.", runtime::upperCase)},
                   {.box = "txtDESC",
                    .field = "Desc",
                    .column = 1,
                    .maxLength = 50,
                    .title = "Description",
                    .check = screens::requiredCheck("Blank Description Detected.")},
                   {.box = "txtFORMNAME",
                    .field = "FORMNAME",
                    .column = 2,
                    .maxLength = 16,
                    .title = "Form Name",
                    .check = screens::foldingCheck(runtime::upperCase)}},
        .mayAdd = [this] { return hasModule(); },
        .added =
            [this] {
                return screens::AddedValues{{"UAITAG", NextTag(m_tags, "UAITAG")}, {"MODULEID", mModuleID}};
            },
        .deleteQuestion = question};
}

shell::KeyPairs frmTOLUAI01::ofModule(data::Recordset& items) const {
    return {{mModuleID, items.Fields("MODULEID")}};
}

bool frmTOLUAI01::hasModule() const {
    return shell::vdNotBlank(mModuleID);
}

// Load.

std::string frmTOLUAI01::databaseFile() {
    return shell::vdNetPath(sNetPath, false);
}

void frmTOLUAI01::openMore(data::Database& database) {
    m_modules = database.OpenRecordset("MODULES");
    m_settings = database.OpenRecordset("NETSETTINGS");
    m_tags = database.OpenRecordset("NETTAGS");
    mModuleID = selectedModule(m_settings);
}

void frmTOLUAI01::loadList() {
    LoadModuleList();
}

void frmTOLUAI01::LoadModuleList() {
    if (hasModule())
        showModule();
    list().BrowseLoad();
}

/// A module that is gone is told; its items are listed all the same.
void frmTOLUAI01::showModule() {
    m_modules.Index("MODULES");
    m_modules.Seek("=", {mModuleID});
    const auto text = [&](const char* field, const char* whenGone) {
        return QString::fromStdString(m_modules.NoMatch() ? whenGone
                                                          : shell::vdNullCheckText(m_modules.Fields(field)));
    };
    lblMODULEID->setText(text("MODULEID", "???"));
    lblMODULENAME->setText(text("MODULENAME", "Module Not Found"));
}

// Buttons.

void frmTOLUAI01::cmdSelect_Click() {
    frmTOLMODSEL picker(sNetPath);
    picker.showModal(window());
    if (shell::vdNotBlank(picker.chosenModule())) {
        mModuleID = picker.chosenModule();
        selectModule(m_settings, mModuleID);
        LoadModuleList();
    }
    panel().takeFocus();
}

void frmTOLUAI01::cmdSearch_Click() {
    const std::string found =
        search_print::vdSearchUAIInModule(sNetPath, mModuleID, lblMODULENAME->text().toStdString());
    if (shell::vdNotBlank(found)) {
        list().setCurrent(found, 0);
        list().BrowseReload();
    }
    panel().takeFocus();
}

void frmTOLUAI01::cmdPrint_Click() {
    if (shell::vdNotBlank(list().currentMark()))
        printList(*this, PrintedList::AccessItems, sNetPath,
                  {.firstRow = shell::vdFindFirst(recordset(), "USERACCESSITEMS", ofModule(recordset())),
                   .code = lblMODULEID->text().toStdString(),
                   .name = lblMODULENAME->text().toStdString()});
    panel().takeFocus();
}

} // namespace tol::rights
