// SPDX-License-Identifier: MIT
#pragma once

#include "forms/events/EventProcedure.h"
#include "screens/browse/BrowseDescription.h"
#include "screens/browse/BrowsePage.h"

#include <QRgb>
#include <QString>

#include <functional>
#include <string>
#include <vector>

class QLabel;
class QPushButton;
class QScrollBar;
class QWidget;

namespace tol::forms {
class Form;
}

namespace tol::screens {

class BrowseList;
class RowLabel;

/// How the controls of a list are called and where they lie on their window, in twips.
struct ListPlace {
    int left = 0, top = 0;
    QString focusHolder = "hsbMAIN";
    QString buttons = "cmdVDB"; ///< cmdVDBHOME, cmdVDBEND, ..., cmdVDBACTION
    QString caption = "List";   ///< what assistive technology calls the list
    bool coloredHeadings = false;
};

/// A list's widgets on a form: headings, label arrays (an element is called "lblPATHNAME(3)"), the scroll bar
/// that holds the focus, the six picture buttons and the action button. The form owns the widgets. Once
/// connected, clicks on the rows and buttons go to the list. The frame around the rows tells whether the
/// list has the keyboard; the scroll bar's accessible description is the highlighted row.
class ListPanel : public BrowsePage {
  public:
    ListPanel(forms::Form& form, const BrowseDescription& description, const ListPlace& place);

    /// `columnClicked` runs with the column (from 0) before the list gets the row. Clicks go nowhere
    /// while the list is out of use. The list has to live as long as the form takes clicks.
    void connectTo(BrowseList& list, std::function<void(int column)> columnClicked = nullptr);
    /// Clicks lead nowhere from now on, and the buttons look so; nothing is held of the list.
    void disconnect();
    /// What the action button does in place of the list's own action, and what its tool tip says. Without a
    /// procedure there is no such button.
    void setAction(const QString& description, forms::EventProcedure click);

    /// Runs with the column of a heading that is clicked, before the list gets the focus back.
    void onHeadingClick(std::function<void(int column)> procedure);
    /// Runs when the highlighted row is clicked twice quickly, which the first click may have highlighted.
    void onDoubleClick(forms::EventProcedure procedure) { m_doubleClicked = std::move(procedure); }
    /// Of headings that are coloured.
    void setHeadingColor(int column, QRgb color);

    /// Runs with the text of the highlighted row when that is announced.
    void onHighlight(std::function<void(const std::string& text)> procedure) {
        m_highlighted = std::move(procedure);
    }

    void setCaption(int row, int column, const std::string& caption) override;
    void setHighlight(int row, bool on) override;
    void announce(const std::string& text) override;
    void takeFocus() override;
    [[nodiscard]] bool isShown() const override;

    /// In use: clicks count and the scroll bar can have the focus.
    void setInUse(bool inUse);
    [[nodiscard]] bool isInUse() const;
    [[nodiscard]] bool hasFocus() const;
    [[nodiscard]] RowLabel& label(int row, int column) const { return *m_rows.at(row).at(column); }
    /// Extent of the whole panel, buttons included, in twips.
    [[nodiscard]] int width() const;
    [[nodiscard]] int height() const;
    /// Top of a row's labels, and left edge and width of a column, in twips.
    [[nodiscard]] int rowTop(int row) const;
    [[nodiscard]] int columnLeft(int column) const { return m_columnLefts.at(column); }
    [[nodiscard]] int columnWidth(int column) const;

    /// Height of a row's labels, and of a text box that lies over one, in twips.
    static constexpr int rowHeight = 315;

  private:
    void makeRows(const BrowseDescription& description, bool coloredHeadings);
    void makeHeading(const BrowseColumn& column, int left, bool colored);
    void makeColumn(const BrowseColumn& column, int left);
    void makeButtons(const QString& prefix);
    void enableButtons();
    [[nodiscard]] int rowsHeight() const;
    void clickRow(int row, int column);
    void doubleClickRow(int row, int column);
    void clickMove(int key);
    void clickAction();

    forms::Form& m_form;
    int m_left, m_top;
    int m_rowCount;
    std::vector<int> m_columnLefts; ///< one more than there are columns
    std::vector<QLabel*> m_headings;
    std::vector<std::vector<RowLabel*>> m_rows;
    QScrollBar* m_focusHolder = nullptr;
    std::vector<QPushButton*> m_buttons;
    BrowseList* m_list = nullptr;
    std::function<void(int)> m_columnClicked;
    std::function<void(const std::string&)> m_highlighted;
    forms::EventProcedure m_action, m_doubleClicked;
};

} // namespace tol::screens
