// SPDX-License-Identifier: MIT
#include "jobsites/frmDBPBrowse.h"

#include "forms/controls/TextBox.h"
#include "jobsites/frmDBPSearch.h"
#include "platform/Paths.h"
#include "runtime/Host.h"
#include "runtime/Text.h"
#include "screens/EditChecks.h"
#include "search_print/vdPrint.h"
#include "shell/vdfunctions/vdGetNewTag.h"
#include "shell/vdfunctions/vdNullCheck.h"

#include <fmt/format.h>
#include <map>

namespace tol::jobsites {
namespace {

std::string question(data::Recordset& site) {
    return fmt::format("OK to Delete Job Site: {}  ?",
                       runtime::trim(shell::vdNullCheckText(site.Fields("PATHNAME"))));
}

std::string foldedPath(const std::string& path) {
    return platform::withoutBackslash(runtime::upperCase(path));
}

std::string folded(const std::string& name) {
    return runtime::upperCase(name);
}

screens::AddedValues newTag() {
    return {{"DBTAG", shell::vdGetNewTag(" ", "DBTAG", "DBPATHS.MDB", "DBTAGS", 0)}};
}

} // namespace

std::string vdModuleName(const std::string& letter) {
    static const std::map<std::string, std::string> names = {{"L", "Orvane Module"},
                                                             {"E", "Brimel Module"},
                                                             {"M", "Sennet Module"},
                                                             {"N", "Sennet Intake"},
                                                             {"I", "Wendry Module"}};
    const auto found = names.find(letter);
    return found == names.end() ? std::string() : found->second;
}

frmDBPBrowse::frmDBPBrowse() : ListWindow(description()) {}

screens::ListWindowDescription frmDBPBrowse::description() {
    return {
        .name = "frmDBPBrowse",
        .caption = "Job Sites",
        .workspace = "wksPATH",
        .table = "DBPATHS",
        .list = {.index = "DBPATHS",
                 .columns = {{.label = "lblPATHNAME",
                              .headingLabel = "lblHPATHNAME",
                              .heading = "Job Site",
                              .width = 3000,
                              .field = "PATHNAME"},
                             {.label = "lblPATHTEXT",
                              .headingLabel = "lblHPATHTEXT",
                              .heading = " Location of Database Files",
                              .width = 5700,
                              .field = "PathText",
                              .cut = screens::TextCut::Middle}},
                 .rows = 8,
                 .endText = "End of List",
                 .emptyText = "List is Empty"},
        .edit = {.form = screens::EditForm::Plain,
                 .fields = {{.box = "txtPATHNAME",
                             .field = "PATHNAME",
                             .column = 0,
                             .maxLength = 16,
                             .title = "Job Site",
                             .check = screens::requiredCheck("Database Name is Empty."),
                             .leave = folded},
                            {.box = "txtPATHTEXT",
                             .field = "PathText",
                             .column = 1,
                             .maxLength = 100,
                             .title = "Location of Database Files",
                             .check = screens::requiredCheck("Path String is Empty."),
                             .leave = foldedPath}},
                 .sideButtons = {{.name = "cmdSelectPath",
                                  .caption = "...",
                                  .toolTip = "Click for Location Selection Form",
                                  .column = 1,
                                  .click = [this] { cmdSelectPath_Click(); }}},
                 .added = newTag,
                 .write =
                     [this](data::Recordset&, screens::EditMode mode) {
                         if (mode == screens::EditMode::Edit)
                             mPathChanged = true;
                     },
                 .deleteQuestion = question},
    };
}

void frmDBPBrowse::cmdSelectPath_Click() {
    forms::TextBox& path = editCycle().box(1);
    frmDBPSearch picker;
    picker.sPath = path.Text();
    picker.showModal(this);
    if (picker.sPath != path.Text()) // a drive's own folder ends in a backslash
        path.Text(foldedPath(picker.sPath));
}

void frmDBPBrowse::cmdPrint_Click() {
    search_print::vdPrint(*window(), {.PrintPath = platform::currentFolder(),
                                      .PrintDBName = "DBPATHS.MDB",
                                      .PrintTable = "DBPATHS",
                                      .PrintIndex = "DBPATHS",
                                      .PrintWindowTitle = "Print the List of Job Sites",
                                      .ReportName = "List of Job Sites",
                                      .ModuleText = vdModuleName(sModule),
                                      .FieldList = "PATHNAME|PATHTEXT",
                                      .FormatList = "C|C",
                                      .SizeList = "16|30",
                                      .TitleList = "Job Site|Location of Database Files",
                                      .WidthList = "2000|6000",
                                      .AlignList = "-^|-"});
    panel().takeFocus();
}

bool frmDBPBrowse::mayExit() {
    if (mPathChanged)
        runtime::host().msgBox("Remember, if you changed the Location of Database Files\n"
                               "for an existing Job Site then you need to Reselect that Job Site\n"
                               "(Main Menu Option: File, 1 - Select Job Site)\n"
                               "in order for the changes to take effect.",
                               {}, "Reminder");
    return true;
}

} // namespace tol::jobsites
