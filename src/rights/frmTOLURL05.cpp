// SPDX-License-Identifier: MIT
#include "rights/frmTOLURL05.h"

#include "forms/controls/Controls.h"
#include "forms/controls/TextBox.h"
#include "forms/events/Focus.h"
#include "rights/CodeSearch.h"
#include "runtime/Conversions.h"
#include "runtime/Host.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "search_print/vdSearchPresets.h"
#include "shell/vdfunctions/vdLocation.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdfunctions/vdTexts.h"
#include "shell/vdwindows/vdFormLoadError.h"

#include <QLabel>
#include <QPushButton>

#include <fmt/format.h>

namespace tol::rights {
namespace {

constexpr int codeLength = 8;

constexpr int margin = 150;
constexpr int noticeWidth = 6600, noticeHeight = 1200;
constexpr int rowHeight = 315;
constexpr int codeLeft = margin + 1050, codeWidth = 1200;
constexpr int searchWidth = 375;
constexpr int buttonWidth = 1200, buttonHeight = 375;

constexpr const char* notice = "By selecting a User Rights Template you will "
                               "automatically add User Access Items to the User's list. "
                               "This process will also 'refresh' the list of items "
                               "related to a URT Code.  That is, if any changes "
                               "have been made to the list of items under the URT Code, "
                               "those changes will overwrite any items currently "
                               "attached to this user for the URT Code you select.";

} // namespace

frmTOLURL05::frmTOLURL05() : Form("frmTOLURL05") {
    setWindowTitle("Add User Rights Items from a UR Template");
    makeControls();
    onSearchAsked(*txtURTCODE, [this] { SearchTemplateCode(); });
}

void frmTOLURL05::makeControls() {
    forms::addLabel(*this, "lblNotice", {}, {margin, margin, noticeWidth, noticeHeight}).setWordWrap(true);
    const int top = margin + noticeHeight + margin;
    QLabel& heading =
        forms::addLabel(*this, "lblHMODULE", "URT Code:", {margin, top, codeLeft - margin, rowHeight});
    txtURTCODE = &forms::TextBox::add(*this, "txtURTCODE", codeLength, {codeLeft, top, codeWidth, rowHeight});
    txtURTCODE->onKeyPress([](int key) { return forms::vdEnterKey(key, false, false); });
    txtURTCODE->onGotFocus([this] { forms::vdSelectAll(*txtURTCODE); });
    forms::setLabelOf(heading, *txtURTCODE);
    int left = codeLeft + codeWidth;
    QPushButton& search = forms::addButton(*this, "cmdURTSearch", "=", {left, top, searchWidth, rowHeight},
                                           [this] { SearchTemplateCode(); });
    search.setToolTip("Click to Display Search Window");
    search.setAccessibleName(search.toolTip());
    left += searchWidth + margin;
    const int right = margin + noticeWidth;
    lblURTNAME = &forms::addLabel(*this, "lblURTNAME", {}, {left, top, right - left, rowHeight});

    const int buttonTop = top + rowHeight + 2 * margin;
    QPushButton& ok = forms::addButton(
        *this, "cmdOK", "&OK", {right - 2 * buttonWidth - margin / 2, buttonTop, buttonWidth, buttonHeight},
        [this] { cmdOK_Click(); });
    forms::onGotFocus(ok, [this] { CheckTemplateCode(); });
    cmdCancel = &forms::addButton(*this, "cmdCancel", "&Cancel",
                                  {right - buttonWidth, buttonTop, buttonWidth, buttonHeight},
                                  [this] { cmdCancel_Click(); });
    setCancelButton(cmdCancel);
    setScaleSize(right + margin, buttonTop + buttonHeight + margin);
}

void frmTOLURL05::onLoad() {
    m_loadFinished = false;
    mValid = false;
    findChild<QLabel*>("lblNotice")->setText(notice);
    txtURTCODE->Text(runtime::space(codeLength));
    try {
        m_templates = data::OpenTable("wksNET", shell::vdNetPath(sNetPath, false), "URTEMPLATES");
        m_loadFinished = true;
        txtURTCODE->setFocus();
    } catch (const runtime::RuntimeError& error) {
        shell::vdFormLoadError(*this, *cmdCancel, "frmTOLURL05", std::to_string(error.number()),
                               error.description());
    }
}

void frmTOLURL05::onUnload() {
    if (m_loadFinished)
        m_templates.Close();
    m_loadFinished = false;
    m_templates = {};
}

void frmTOLURL05::SearchTemplateCode() {
    const std::string mark = search_print::vdSearchURT(sNetPath);
    data::Recordset& templates = m_templates.rows;
    if (takeSearched(*txtURTCODE, templates, "URTCODE", mark))
        lblURTNAME->setText(QString::fromStdString(shell::vdNullCheckText(templates.Fields("URTNAME"))));
}

/// When the focus comes to cmdOK, which the click needs.
void frmTOLURL05::CheckTemplateCode() {
    const std::string text = failure();
    mValid = text.empty();
    if (mValid)
        return;
    runtime::host().msgBox(text, {runtime::MsgIcon::Critical, runtime::MsgButtons::Ok}, "Invalid Item");
    txtURTCODE->setFocus();
}

/// What is wrong with the code, "" for nothing; else its template is the chosen one. One without a number
/// can't be filled from: its items could not be told from rows entered by hand.
std::string frmTOLURL05::failure() {
    if (shell::vdIsBlank(txtURTCODE->Text()))
        return "User Rights Template Code is Empty.";
    txtURTCODE->Text(runtime::upperCase(txtURTCODE->Text()));
    data::Recordset& templates = m_templates.rows;
    templates.Index("URTCODE");
    templates.Seek("=", {txtURTCODE->Text()});
    const runtime::Value tag =
        templates.NoMatch() ? runtime::Value(runtime::Null{}) : templates.Fields("URTTAG").Value();
    if (tag.isNull())
        return fmt::format("Cannot Find User Rights Template Code: {}", runtime::trim(txtURTCODE->Text()));
    mChosenURTTag = runtime::toLong(tag);
    return {};
}

void frmTOLURL05::cmdOK_Click() {
    if (mValid)
        unload();
}

void frmTOLURL05::cmdCancel_Click() {
    mValid = false;
    unload();
}

/// The close button of the window's frame is a Cancel.
void frmTOLURL05::closeEvent(QCloseEvent* event) {
    mValid = false;
    Form::closeEvent(event);
}

} // namespace tol::rights
