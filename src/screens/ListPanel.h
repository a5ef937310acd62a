// SPDX-License-Identifier: MIT
#pragma once

#include "forms/EventProcedure.h"
#include "screens/BrowseDescription.h"
#include "screens/BrowsePage.h"

#include <QString>

#include <vector>

class QLabel;
class QScrollBar;
class QWidget;

namespace tol::forms {
class Form;
}

namespace tol::screens {

class BrowseList;

/// How the controls of a list are called and where they lie on their window, in twips.
struct ListPlace {
    int left, top;
    QString focusHolder = "hsbMAIN";
    QString buttons = "cmdVDB"; ///< cmdVDBHOME, cmdVDBEND, ..., cmdVDBACTION
};

/// A list's widgets on a form: headings, label arrays, the scroll bar that holds the focus, the six
/// picture buttons and the action button. The form owns the widgets. Once connected, clicks on the rows
/// and buttons go to the list.
class ListPanel : public BrowsePage {
  public:
    ListPanel(forms::Form& form, const BrowseDescription& description, const ListPlace& place);
    ~ListPanel() override;

    /// `columnClicked` is told the column (from 0) before the list is told the row. Nothing is told
    /// while the list is out of use.
    void connectTo(BrowseList& list, std::function<void(int column)> columnClicked = nullptr);

    void setCaption(int row, int column, const std::string& caption) override;
    [[nodiscard]] std::string caption(int row, int column) const override;
    void setRowColor(int row, std::uint32_t color) override;
    void takeFocus() override;

    /// In use: clicks count and the scroll bar can have the focus.
    void setInUse(bool inUse);
    [[nodiscard]] bool isInUse() const;
    [[nodiscard]] bool hasFocus() const;
    [[nodiscard]] QLabel& label(int row, int column) const;
    /// Extent of the whole panel, buttons included, in twips.
    [[nodiscard]] int width() const;
    [[nodiscard]] int height() const;
    /// Top of a row's labels, and left edge and width of a column, in twips.
    [[nodiscard]] int rowTop(int row) const;
    [[nodiscard]] int columnLeft(int column) const;
    [[nodiscard]] int columnWidth(int column) const;

  private:
    struct Widgets;
    std::unique_ptr<Widgets> m_widgets;
};

} // namespace tol::screens
