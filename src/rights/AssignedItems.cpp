// SPDX-License-Identifier: MIT
#include "rights/AssignedItems.h"

#include "forms/controls/Controls.h"
#include "forms/controls/TextBox.h"
#include "forms/windows/LoadedForms.h"
#include "forms/windows/MdiForm.h"
#include "rights/CodeSearch.h"
#include "rights/ListReportWindow.h"
#include "rights/frmTOLURL05.h"
#include "rights/model/FillFromTemplate.h"
#include "runtime/Conversions.h"
#include "runtime/Text.h"
#include "screens/EditChecks.h"
#include "search_print/vdSearchPresets.h"
#include "shell/vdfunctions/vdLocation.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdfunctions/vdTexts.h"

#include <QLabel>

#include <fmt/format.h>
#include <utility>

namespace tol::rights {
namespace {

using runtime::toLong;
using screens::EditedField;
using screens::EditMode;
using shell::vdNullCheck;
using shell::vdNullCheckText;

constexpr std::int16_t codeMarks = 8, descriptionMarks = 30; // question marks of what is gone

constexpr int lineHeight = 315, headingWidth = 1200, textWidth = 5700; // twips

bool isAllowed(data::Recordset& row) {
    return runtime::toBoolean(vdNullCheck(row.Fields("ALLOWED")));
}

} // namespace

AssignedItems::AssignedItems(const ItemsOwner& owner, std::string netPath, std::string mark)
    : ListWindow(description(owner)), m_owner(owner), sNetPath(std::move(netPath)), m_mark(std::move(mark)) {
    makeOwnerLines();
    onSearchAsked(editCycle().box(0), [this] { SearchItemCode(); });
}

void AssignedItems::showFor(QWidget& list, const ItemsOwner& owner, const std::string& netPath,
                            const std::string& mark) {
    for (int position = 0; position < forms::LoadedForms::Count(); ++position) {
        auto* open = dynamic_cast<AssignedItems*>(&forms::LoadedForms::Item(position));
        if (open != nullptr && &open->m_owner == &owner && open->m_mark == mark)
            return open->showModeless();
    }
    dynamic_cast<forms::MdiForm&>(*list.window())
        .showChild(std::make_unique<AssignedItems>(owner, netPath, mark));
}

// What it is made of.

screens::ListWindowDescription AssignedItems::description(const ItemsOwner& owner) {
    screens::ListWindowDescription window{.name = owner.window,
                                          .caption = owner.caption,
                                          .table = owner.table,
                                          .list = {.index = owner.table,
                                                   .columns = columns(owner),
                                                   .subset = {.keys = [this](auto& rows) -> shell::KeyPairs {
                                                       return {{mOwnerTag, rows.Fields(m_owner.tag)}};
                                                   }}},
                                          .edit = edit(),
                                          .headerHeight =
                                              static_cast<int>(owner.lines.size()) * lineHeight + margin};
    if (owner.isFilled)
        window.commands = {{"cmdURTFill", "&Fill from a URT", "Add Items by Selecting a User Rights Template",
                            [this] { cmdURTFill_Click(); }}};
    return window;
}

std::vector<screens::BrowseColumn> AssignedItems::columns(const ItemsOwner& owner) {
    std::vector<screens::BrowseColumn> columns = {
        {.label = "lblUAICODE",
         .headingLabel = "lblHUAICODE",
         .heading = "UAI Code",
         .width = 1500,
         .text = [this](auto& row) { return ofItem(row, "UAICODE", codeMarks); }},
        {.label = "lblDESC",
         .headingLabel = "lblHDESC",
         .heading = " Description",
         .width = 5100,
         .text = [this](auto& row) { return ofItem(row, "Desc", descriptionMarks); }},
        {.label = "lblALLOWED",
         .headingLabel = "lblHALLOWED",
         .heading = "Allowed?",
         .width = 1050,
         .text = [](auto& row) { return isAllowed(row) ? "Yes" : "No"; }}};
    if (owner.isFilled)
        columns.push_back({.label = "lblURTCODE",
                           .headingLabel = "lblHURTCODE",
                           .heading = "URT Code",
                           .width = 1200,
                           .text = [this](auto& row) { return templateCode(row); }});
    return columns;
}

screens::EditDescription AssignedItems::edit() {
    return {.fields = {{.box = "txtUAICODE",
                        .column = 0,
                        .maxLength = 8,
                        .title = "UAI Code",
                        .check = [this](EditedField& edited) { return CheckItemCode(edited); },
                        .read = [this](auto& row) { return beginEdit(row); }},
                       {.box = "txtALLOWED",
                        .column = 2,
                        .maxLength = 1,
                        .title = "Allowed?",
                        .check = screens::yesNoCheck("Blank 'Allowed?' Option Detected.",
                                                     "'Allowed' Option Must Be 'Y/N'."),
                        .read = [](auto& row) { return isAllowed(row) ? "Y" : "N"; }}},
            .sideButtons = {{"cmdUAISearch", "=", "Click to Display Search Window", 0,
                             [this] { SearchItemCode(); }}},
            .sideLabels = {{"lblTDESC", 1}},
            .begin =
                [this](EditMode mode) {
                    if (mode == EditMode::Add)
                        label("lblTDESC").setText(" ");
                },
            .write = [this](data::Recordset& row, EditMode) { writeItem(row); },
            .checkAtUpdateFocus = true,
            .deleteQuestion = [this](auto& row) { return question(row); }};
}

/// Above the list: a heading and a text in each line.
void AssignedItems::makeOwnerLines() {
    int top = margin;
    for (const OwnerLine& line : m_owner.lines) {
        if (line.headingLabel != nullptr)
            forms::addLabel(*this, line.headingLabel, line.heading, {margin, top, headingWidth, lineHeight});
        forms::addLabel(*this, line.label, {}, {margin + headingWidth, top, textWidth, lineHeight});
        top += lineHeight;
    }
}

QLabel& AssignedItems::label(const char* name) const {
    return *findChild<QLabel*>(name);
}

// Load.

std::string AssignedItems::databaseFile() {
    return shell::vdNetPath(sNetPath, false);
}

void AssignedItems::openMore(data::Database& database) {
    readOwner(database);
    m_accessItems = database.OpenRecordset("USERACCESSITEMS");
    if (!m_owner.isFilled)
        return;
    m_templates = database.OpenRecordset("URTEMPLATES");
    m_templateItems = database.OpenRecordset("URTITEMS");
    m_rights = database.OpenRecordset(m_owner.table);
}

void AssignedItems::readOwner(data::Database& database) {
    data::Recordset owner = database.OpenRecordset(m_owner.ownerTable);
    owner.Bookmark(m_mark);
    mOwnerTag = toLong(vdNullCheck(owner.Fields(m_owner.tag)));
    for (const OwnerLine& line : m_owner.lines)
        label(line.label).setText(QString::fromStdString(vdNullCheckText(owner.Fields(line.field))));
}

shell::KeyPairs AssignedItems::ownerKey(data::Recordset& rows) const {
    return {{mOwnerTag, rows.Fields(m_owner.tag)}};
}

// What the rows say.

/// Goes to the User Access Item that a row names; false when it is gone.
bool AssignedItems::findItem(data::Recordset& row) {
    m_accessItems.Index("UAITAG");
    m_accessItems.Seek("=", {vdNullCheck(row.Fields("UAITAG"))});
    return !m_accessItems.NoMatch();
}

std::string AssignedItems::ofItem(data::Recordset& row, const char* field, std::int16_t marks) {
    return findItem(row) ? vdNullCheckText(m_accessItems.Fields(field)) : shell::vdRepeat("?", marks);
}

/// Of the template from which the right came.
std::string AssignedItems::templateCode(data::Recordset& right) {
    const std::int32_t urtTag = toLong(vdNullCheck(right.Fields("URTTAG")));
    if (urtTag == 0)
        return " "; // entered by hand
    m_templates.Index("URTTAG");
    m_templates.Seek("=", {urtTag});
    return m_templates.NoMatch() ? shell::vdRepeat("?", codeMarks)
                                 : vdNullCheckText(m_templates.Fields("URTCODE"));
}

std::string AssignedItems::question(data::Recordset& row) {
    return fmt::format("OK to Delete URT Item: {} - {}?", runtime::trim(ofItem(row, "UAICODE", codeMarks)),
                       runtime::trim(ofItem(row, "Desc", descriptionMarks)));
}

// The edit.

/// What the code's box begins with. The code of an item that is gone is not known: the box is left alone, and
/// the record keeps its tag unless another code is entered.
std::string AssignedItems::beginEdit(data::Recordset& row) {
    mItemUAITag = toLong(vdNullCheck(row.Fields("UAITAG")));
    if (!findItem(row))
        return editCycle().box(0).Text();
    takeItem();
    return vdNullCheckText(m_accessItems.Fields("UAICODE"));
}

std::string AssignedItems::CheckItemCode(EditedField& edited) {
    if (shell::vdIsBlank(edited.text))
        return "Blank Code Detected.";
    edited.setText(runtime::upperCase(edited.text));
    m_accessItems.Index("UAICODE");
    m_accessItems.Seek("=", {edited.text});
    if (m_accessItems.NoMatch())
        return fmt::format("Cannot Find Code: {}", runtime::trim(edited.text));
    takeItem();
    return {};
}

/// The edit boxes name the item on which the recordset stands.
void AssignedItems::takeItem() {
    mItemUAITag = toLong(vdNullCheck(m_accessItems.Fields("UAITAG")));
    label("lblTDESC").setText(QString::fromStdString(vdNullCheckText(m_accessItems.Fields("Desc"))));
}

void AssignedItems::SearchItemCode() {
    const std::string mark = search_print::vdSearchUAI(sNetPath);
    if (takeSearched(editCycle().box(0), m_accessItems, "UAICODE", mark))
        takeItem();
}

void AssignedItems::writeItem(data::Recordset& row) {
    row.Fields(m_owner.tag).Value(mOwnerTag);
    row.Fields("UAITAG").Value(mItemUAITag);
    row.Fields("ALLOWED").Value(editCycle().box(1).Text() == "Y");
}

// Buttons.

void AssignedItems::cmdPrint_Click() {
    if (shell::vdNotBlank(list().currentMark()))
        printList(*this, m_owner.printed, sNetPath,
                  {.firstRow = shell::vdFindFirst(recordset(), m_owner.table, ownerKey(recordset())),
                   .code = label(m_owner.lines[0].label).text().toStdString(),
                   .name = label(m_owner.lines[1].label).text().toStdString()});
    panel().takeFocus();
}

void AssignedItems::cmdURTFill_Click() {
    if (mFillRunning)
        return;
    frmTOLURL05 dialog;
    dialog.sNetPath = sNetPath;
    dialog.showModal(this);
    if (dialog.mValid)
        fillFrom(dialog.mChosenURTTag);
}

/// A person may go on working with the list meanwhile, which walks by a recordset of its own.
void AssignedItems::fillFrom(std::int32_t urtTag) {
    const Busy busy(*this); // an unload that is asked for stops the fill, too
    mFillRunning = true;
    FillFromTemplate(m_rights, m_templateItems, {.userTag = mOwnerTag, .urtTag = urtTag},
                     [this] { return mFillRunning && !unloadWaits(); });
    loadList();
    mFillRunning = false;
    panel().takeFocus();
}

/// During a fill, cmdExit only stops it.
bool AssignedItems::mayExit() {
    return !std::exchange(mFillRunning, false);
}

} // namespace tol::rights
