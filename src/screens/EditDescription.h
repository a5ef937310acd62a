// SPDX-License-Identifier: MIT
#pragma once

#include "data/Recordset.h"
#include "forms/events/EventProcedure.h"
#include "runtime/Text.h"
#include "runtime/Value.h"

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tol::screens {

enum class EditMode : char { None = ' ', Add = 'A', Edit = 'E' };

/// Plain: everything is checked at Update, and the failure box offers to give up. FieldCheck: a box is
/// checked when the focus leaves it for another box, and the last one used at Update.
enum class EditForm { Plain, FieldCheck };

/// What a check is told of the record being edited.
struct EditedField {
    std::string text;           ///< what the box holds and the record will
    int maxLength;              ///< of the box, 0 for any
    data::Recordset& recordset; ///< may be moved
    EditMode mode;
    const std::string& currentMark; ///< bookmark of the record in mode Edit

    /// Changes what the box holds, which is cut to its length.
    void setText(std::string_view changed) {
        text = maxLength > 0 ? runtime::left(changed, maxLength) : changed;
    }
};

/// Returns what is wrong, "" for nothing.
using EditCheck = std::function<std::string(EditedField&)>;

/// A text box that lies over a column of the list while a record is added or edited.
struct EditField {
    std::string box;        ///< name of the text box, such as "txtMODULEID"
    std::string field = {}; ///< of the recordset; "" when `read` and the cycle's `write` do its work
    int column = 0;         ///< of the list; a click on it leads to this box
    int maxLength = 0;      ///< characters
    std::string title;      ///< what assistive technology calls the box
    EditCheck check = nullptr;
    std::function<std::string(const std::string&)> leave = nullptr; ///< what the text becomes on leaving
    std::function<std::string(data::Recordset&)> read = nullptr;    ///< instead of the field's text
};

/// A small button beside a box, which appears and moves with it.
struct EditSideButton {
    std::string name, caption, toolTip;
    int column = 0; ///< it takes the end of that column
    forms::EventProcedure click;
};

/// A label over a column that has no box, which appears and moves with the boxes.
struct EditSideLabel {
    std::string name;
    int column = 0;
};

/// Fields and what an added record has in them.
using AddedValues = std::vector<std::pair<std::string, runtime::Value>>;

/// All that sets one record edit apart from another.
struct EditDescription {
    EditForm form = EditForm::FieldCheck;
    std::vector<EditField> fields; ///< the first one holds the key
    std::vector<EditSideButton> sideButtons = {};
    std::vector<EditSideLabel> sideLabels = {};
    /// Whether an Add may begin.
    std::function<bool()> mayAdd = nullptr;
    /// Runs when the boxes have their texts, before they appear.
    std::function<void(EditMode)> begin = nullptr;
    /// What an added record gets besides the boxes; asked for before AddNew.
    std::function<AddedValues()> added = nullptr;
    /// Writes what does not come from a box, in both modes, before Update.
    std::function<void(data::Recordset&, EditMode)> write = nullptr;
    /// Whether the check of the last box runs when cmdUpdate gets the focus rather than at its click.
    bool checkAtUpdateFocus = false;
    /// The question before the current record is deleted.
    std::function<std::string(data::Recordset&)> deleteQuestion = nullptr;
    /// Deletes what belongs to the current record, before the record itself. May yield; the window is out of
    /// use meanwhile.
    std::function<void(data::Recordset&)> deleteDependents = nullptr;
};

} // namespace tol::screens
