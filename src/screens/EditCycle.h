// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/Host.h"
#include "screens/EditDescription.h"

#include <cstdint>
#include <string>
#include <vector>

class QPushButton;
class QWidget;

namespace tol::runtime {
class RuntimeError;
}

namespace tol::forms {
class Form;
class TextBox;
} // namespace tol::forms

namespace tol::screens {

class BrowseList;
class ListPanel;

/// The buttons whose look depends on whether a record is being edited.
struct EditButtons {
    QPushButton* cmdAdd = nullptr;
    QPushButton* cmdEdit = nullptr;
    QPushButton* cmdDelete = nullptr;
    QPushButton* cmdPrint = nullptr;
    QPushButton* cmdUpdate = nullptr;
    QPushButton* cmdExit = nullptr;
    std::vector<QPushButton*> browseOnly = {}; ///< out of use, but in sight, while a record is edited
};

/// Adding, changing and deleting records in place: text boxes, hidden while the list is browsed, are moved
/// over the row concerned. While a record is edited the list is out of use. Makes the boxes, which belong
/// to the form; form, panel and list outlive it.
class EditCycle {
  public:
    EditCycle(forms::Form& form, ListPanel& panel, BrowseList& list, EditDescription description);
    EditCycle(const EditCycle&) = delete;
    EditCycle& operator=(const EditCycle&) = delete;
    ~EditCycle() = default;

    /// To be called once, after the boxes have been made: Tab goes from them to the buttons.
    void setButtons(const EditButtons& buttons);

    void add();
    void edit();
    void update();
    void remove();
    /// Gives up what is being edited; nothing is written.
    void cancel();

    [[nodiscard]] bool isEditing() const { return mMode != EditMode::None; }
    /// The column (from 0) whose box gets the focus when the next edit begins.
    void setEditColumn(int column);
    [[nodiscard]] forms::TextBox& box(std::size_t position) const { return *m_boxes.at(position); }

  private:
    /// Something that lies over the row while a record is edited.
    struct Companion {
        QWidget* widget;
        int left;
        int editOffset, homeOffset; ///< twips from the tops of the boxes
        int width, height;
    };

    void makeBox(std::size_t position);
    void makeSideButton(const EditSideButton& button);
    void makeSideLabel(const EditSideLabel& label);
    [[nodiscard]] int sideButtonWidth(int column) const;
    void placeOver(int top, bool home);

    void enterAdd();
    void turnIntoAdd();
    void EnterEditState();
    void LeaveEditState();
    void showBrowseButtons(bool show);

    void gotFocus(std::size_t position);
    void lostFocus(std::size_t position);
    void CheckEditField();
    [[nodiscard]] std::string failureOf(std::size_t position);
    [[nodiscard]] bool allFieldsPass();
    [[nodiscard]] bool isReadyToSave();
    void save();
    void writeRecord();
    void writeFields();
    void tellRefusal(const runtime::RuntimeError& error);
    runtime::MsgResult refuse(const std::string& text, runtime::MsgButtons buttons = runtime::MsgButtons::Ok);
    void deleteCurrent();

    forms::Form& m_form;
    ListPanel& m_panel;
    BrowseList& m_list;
    EditDescription m_description;
    EditButtons m_buttons;
    std::vector<forms::TextBox*> m_boxes;
    std::vector<Companion> m_companions; ///< the boxes first

    EditMode mMode = EditMode::None;
    std::int16_t mAddRow = 0;
    std::int16_t mEditField = 1; ///< which box gets the focus, from 1
    std::int16_t mCurField = 0;  ///< whose check is due, 0 for none
    bool bValid = true;
    int mRowTop = 0;
    int mHomeTop = 0;
    std::string mEditMark = " "; ///< of the record in mode Edit, whatever the list has highlighted since
    std::string mNextMark = " ";
    std::string sMsgText, sMsgTitle;
};

} // namespace tol::screens
