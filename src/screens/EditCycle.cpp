// SPDX-License-Identifier: MIT
#include "screens/EditCycle.h"

#include "forms/controls/Controls.h"
#include "forms/controls/TextBox.h"
#include "forms/events/Focus.h"
#include "forms/windows/Form.h"
#include "runtime/Host.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "screens/ListPanel.h"
#include "screens/RowLabel.h"
#include "screens/browse/BrowseList.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdfunctions/vdRecords.h"

#include <QPushButton>

#include <algorithm>
#include <fmt/format.h>

namespace tol::screens {
namespace {

using runtime::MsgButtons;
using runtime::MsgIcon;
using runtime::MsgResult;
using runtime::RuntimeError;

constexpr int sideButtonOffset = 20; // twips that a side button keeps from a box's edges
constexpr int sideButtonWidthTwips = 375;

/// While it lives, nothing that a person does at a yield reaches the form.
class OutOfUse {
  public:
    explicit OutOfUse(QWidget& form) : m_form(form) { m_form.setEnabled(false); }
    OutOfUse(const OutOfUse&) = delete;
    OutOfUse& operator=(const OutOfUse&) = delete;
    ~OutOfUse() { m_form.setEnabled(true); }

  private:
    QWidget& m_form;
};

} // namespace

EditCycle::EditCycle(forms::Form& form, ListPanel& panel, BrowseList& list, EditDescription description)
    : m_form(form),
      m_panel(panel),
      m_list(list),
      m_description(std::move(description)),
      mHomeTop(panel.rowTop(0)) {
    for (std::size_t i = 0; i < m_description.fields.size(); ++i)
        makeBox(i);
    for (const EditSideLabel& label : m_description.sideLabels)
        makeSideLabel(label);
    placeOver(mHomeTop, true);
    for (const Companion& companion : m_companions)
        companion.widget->hide();
}

void EditCycle::setButtons(const EditButtons& buttons) {
    m_buttons = buttons;
    m_buttons.cmdUpdate->hide();
    forms::setTabStop(*m_buttons.cmdExit, false);
    m_form.setCancelButton(m_buttons.cmdExit);
    if (m_description.checkAtUpdateFocus)
        forms::onGotFocus(*m_buttons.cmdUpdate, [this] { CheckEditField(); });
}

void EditCycle::setEditColumn(int column) {
    const auto& fields = m_description.fields;
    const auto field = std::ranges::find(fields, column, &EditField::column);
    mEditField = field == fields.end() ? 0 : static_cast<std::int16_t>(field - fields.begin() + 1);
}

// The controls.

void EditCycle::makeBox(std::size_t position) {
    const EditField& field = m_description.fields[position];
    forms::TextBox& box =
        forms::TextBox::add(m_form, QString::fromStdString(field.box), field.maxLength, {0, 0, 0, 0});
    box.setAccessibleName(QString::fromStdString(field.title));
    box.onKeyPress([](int key) { return forms::vdEnterKey(key, false, false); });
    box.onGotFocus([this, position] { gotFocus(position); });
    box.onLostFocus([this, position] { lostFocus(position); });
    m_boxes.push_back(&box);
    m_companions.push_back({&box, m_panel.columnLeft(field.column), 0, 0,
                            m_panel.columnWidth(field.column) - sideButtonWidth(field.column),
                            ListPanel::rowHeight});
    for (const EditSideButton& button : m_description.sideButtons)
        if (button.column == field.column)
            makeSideButton(button);
}

int EditCycle::sideButtonWidth(int column) const {
    const bool has = std::ranges::count(m_description.sideButtons, column, &EditSideButton::column) != 0;
    return has ? sideButtonWidthTwips : 0;
}

void EditCycle::makeSideButton(const EditSideButton& button) {
    QPushButton& made = forms::addButton(m_form, QString::fromStdString(button.name),
                                         QString::fromStdString(button.caption), {0, 0, 0, 0}, button.click);
    made.setToolTip(QString::fromStdString(button.toolTip));
    made.setAccessibleName(made.toolTip());
    const int right = m_panel.columnLeft(button.column) + m_panel.columnWidth(button.column);
    m_companions.push_back({&made, right - sideButtonWidthTwips, sideButtonOffset, -sideButtonOffset,
                            sideButtonWidthTwips, ListPanel::rowHeight - 2 * sideButtonOffset});
}

void EditCycle::makeSideLabel(const EditSideLabel& label) {
    auto& made = *new RowLabel(m_form, QString::fromStdString(label.name));
    m_companions.push_back({&made, m_panel.columnLeft(label.column), 0, 0, m_panel.columnWidth(label.column),
                            ListPanel::rowHeight});
}

void EditCycle::placeOver(int top, bool home) {
    for (const Companion& companion : m_companions)
        forms::place(*companion.widget,
                     {companion.left, top + (home ? companion.homeOffset : companion.editOffset),
                      companion.width, companion.height});
}

void EditCycle::EnterEditState() {
    m_list.rows().BrowseRowOff(m_list.row());
    m_form.setKeyPreview(false);
    m_panel.setInUse(false);
    showBrowseButtons(false);
    m_buttons.cmdUpdate->show();
    m_buttons.cmdExit->setText("&Cancel");
    forms::setTabStop(*m_buttons.cmdExit, true);
    mCurField = 0;
    bValid = true; // what an earlier record failed in does not count against this one
    placeOver(mRowTop, false);
    for (const Companion& companion : m_companions)
        companion.widget->show();
    const bool fits = mEditField >= 1 && mEditField <= static_cast<int>(m_boxes.size());
    m_boxes[fits ? mEditField - 1 : 0]->setFocus();
}

void EditCycle::LeaveEditState() {
    showBrowseButtons(true);
    m_buttons.cmdExit->setText("E&xit");
    forms::setTabStop(*m_buttons.cmdExit, false);
    mMode = EditMode::None;
    mEditField = 1;
    m_form.setKeyPreview(true);
    m_panel.setInUse(true);
    m_panel.takeFocus(); // before a control that may have it goes, which would pass it on to the next box
    m_buttons.cmdUpdate->hide();
    for (const Companion& companion : m_companions)
        companion.widget->hide();
    placeOver(mHomeTop, true);
}

void EditCycle::showBrowseButtons(bool show) {
    for (QPushButton* button : {m_buttons.cmdAdd, m_buttons.cmdEdit, m_buttons.cmdDelete, m_buttons.cmdPrint})
        if (button != nullptr)
            button->setVisible(show);
    for (QPushButton* button : m_buttons.browseOnly)
        button->setEnabled(show);
}

// Beginning and giving up.

void EditCycle::add() {
    if (m_description.mayAdd && !m_description.mayAdd())
        return m_panel.takeFocus();
    for (std::size_t i = 0; i < m_boxes.size(); ++i)
        m_boxes[i]->Text(runtime::space(m_description.fields[i].maxLength));
    if (m_description.begin)
        m_description.begin(EditMode::Add);
    enterAdd();
}

void EditCycle::enterAdd() {
    mMode = EditMode::Add;
    mEditField = 1;
    mAddRow = static_cast<std::int16_t>(m_list.rowForAdd(m_description.form == EditForm::FieldCheck));
    mRowTop = m_panel.rowTop(mAddRow);
    EnterEditState();
}

void EditCycle::edit() {
    if (!m_list.goToCurrent())
        return m_panel.takeFocus();
    data::Recordset& recordset = m_list.recordset();
    mEditMark = m_list.currentMark();
    for (std::size_t i = 0; i < m_boxes.size(); ++i) {
        const EditField& field = m_description.fields[i];
        m_boxes[i]->Text(field.read ? field.read(recordset)
                                    : shell::vdNullCheckText(recordset.Fields(field.field)));
    }
    mMode = EditMode::Edit;
    if (m_description.begin)
        m_description.begin(mMode);
    mRowTop = m_panel.rowTop(m_list.row());
    EnterEditState();
}

void EditCycle::cancel() {
    LeaveEditState();
    m_list.BrowseFillPage();
}

// Checking.

void EditCycle::gotFocus(std::size_t position) {
    if (!isEditing())
        return;
    if (m_description.form == EditForm::FieldCheck) {
        const auto number = static_cast<std::int16_t>(position + 1);
        if (mCurField != number)
            CheckEditField();
        if (bValid)
            mCurField = number;
    }
    forms::vdSelectAll(*m_boxes[position]);
}

void EditCycle::lostFocus(std::size_t position) {
    const auto& leave = m_description.fields[position].leave;
    if (leave && isEditing())
        m_boxes[position]->Text(leave(m_boxes[position]->Text()));
}

std::string EditCycle::failureOf(std::size_t position) {
    const EditField& field = m_description.fields[position];
    if (!field.check)
        return {};
    forms::TextBox& box = *m_boxes[position];
    EditedField edited{box.Text(), box.MaxLength(), m_list.recordset(), mMode, mEditMark};
    std::string failure = field.check(edited);
    if (edited.text != box.Text())
        box.Text(edited.text);
    return failure;
}

void EditCycle::CheckEditField() {
    if (mCurField == 0)
        return;
    const auto position = static_cast<std::size_t>(mCurField - 1);
    sMsgText = failureOf(position);
    bValid = sMsgText.empty();
    if (bValid) {
        mCurField = 0;
        return;
    }
    refuse(sMsgText);
    m_boxes[position]->setFocus();
}

MsgResult EditCycle::refuse(const std::string& text, MsgButtons buttons) {
    sMsgText = text;
    sMsgTitle = "Cannot Update Record";
    return runtime::host().msgBox(sMsgText, {MsgIcon::Critical, buttons}, sMsgTitle);
}

bool EditCycle::allFieldsPass() {
    sMsgText.clear();
    for (std::size_t i = 0; i < m_boxes.size() && sMsgText.empty(); ++i)
        sMsgText = failureOf(i);
    if (sMsgText.empty())
        return true;
    if (refuse(sMsgText, MsgButtons::OkCancel) == MsgResult::Ok)
        m_boxes.front()->setFocus();
    else
        cancel();
    return false;
}

// Saving and deleting.

void EditCycle::update() {
    if (!isEditing())
        return;
    if (!m_description.checkAtUpdateFocus)
        m_buttons.cmdUpdate->setFocus(); // the box is left, even when a key has pressed the button
    if (isReadyToSave())
        save();
}

bool EditCycle::isReadyToSave() {
    if (m_description.form == EditForm::Plain)
        return allFieldsPass();
    if (!m_description.checkAtUpdateFocus)
        CheckEditField();
    return bValid;
}

/// The list then shows itself afresh, without the record. What was typed is the person's.
void EditCycle::turnIntoAdd() {
    refuse("This Record has been Deleted by Another User.\n"
           "Click Update to Add it as a New Record, or Cancel to Give it Up.");
    m_list.BrowseReload();
    enterAdd();
}

/// A unique index of the database knows more than the checks do. The edit goes on.
void EditCycle::tellRefusal(const RuntimeError& error) {
    data::Recordset& recordset = m_list.recordset();
    recordset.Index(m_list.description().index); // drops what was to be written
    refuse(fmt::format("{}\nFile: {}", error.description(), recordset.FileName()));
    m_boxes.front()->setFocus();
}

void EditCycle::save() {
    try {
        writeRecord();
    } catch (const RuntimeError& error) {
        if (mMode == EditMode::Edit && error.number() == runtime::errRecordDeleted)
            return turnIntoAdd();
        if (error.number() == runtime::errDuplicateKey)
            return tellRefusal(error);
        throw;
    }
    data::Recordset& recordset = m_list.recordset();
    m_list.setCurrent(recordset.LastModified(), mMode == EditMode::Add ? mAddRow : m_list.row());
    if (m_description.form == EditForm::FieldCheck) // a check may have chosen another order
        recordset.Index(m_list.description().index);
    LeaveEditState();
    m_list.BrowseReload();
}

void EditCycle::writeRecord() {
    data::Recordset& recordset = m_list.recordset();
    if (mMode == EditMode::Add) {
        const AddedValues added = m_description.added ? m_description.added() : AddedValues();
        recordset.AddNew();
        for (const auto& [field, value] : added)
            recordset.Fields(field).Value(value);
    } else {
        recordset.Bookmark(mEditMark);
        recordset.Edit();
    }
    writeFields();
    recordset.Update();
}

void EditCycle::writeFields() {
    data::Recordset& recordset = m_list.recordset();
    for (std::size_t i = 0; i < m_boxes.size(); ++i)
        if (const std::string& field = m_description.fields[i].field; !field.empty())
            recordset.Fields(field).Value(m_boxes[i]->Text());
    if (m_description.write)
        m_description.write(recordset, mMode);
}

void EditCycle::remove() {
    if (!m_list.goToCurrent())
        return m_panel.takeFocus();
    const std::string mark = m_list.currentMark();
    data::Recordset& recordset = m_list.recordset();
    const BrowseSubset& subset = m_list.description().subset;
    mNextMark =
        shell::vdNextBookmark(recordset, mark, subset.keys ? subset.keys(recordset) : shell::KeyPairs());
    recordset.Bookmark(mark);
    sMsgTitle = "Confirm Delete";
    sMsgText = m_description.deleteQuestion(recordset);
    const MsgResult answer =
        runtime::host().msgBox(sMsgText, {MsgIcon::Question, MsgButtons::OkCancel}, sMsgTitle);
    if (answer == MsgResult::Ok)
        deleteCurrent();
    m_panel.takeFocus();
}

void EditCycle::deleteCurrent() {
    const forms::Form::Busy busy(m_form);
    if (!m_list.goToCurrent()) // gone while the question stood
        return;
    if (m_description.deleteDependents) {
        const OutOfUse outOfUse(m_form);
        m_description.deleteDependents(m_list.recordset());
    }
    if (!m_list.goToCurrent()) // gone at a yield
        return;
    m_list.recordset().Delete();
    m_list.setCurrent(mNextMark, m_list.row());
    m_list.BrowseReload();
}

} // namespace tol::screens
