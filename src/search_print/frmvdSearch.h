// SPDX-License-Identifier: MIT
#pragma once

#include "forms/windows/Form.h"
#include "screens/ListPanel.h"
#include "search_print/search/SearchList.h"

#include <memory>
#include <string>

class QLabel;
class QPushButton;

namespace tol::search_print {

/// The window in which one looks for a record of any table. Its Load makes the list from the description;
/// when that fails, only the Cancel button is left on the window.
class frmvdSearch : public forms::Form {
  public:
    explicit frmvdSearch(SearchDescription description);

    /// The bookmark of the chosen record; one blank for none.
    std::string SearchResult = " ";

  protected:
    void onLoad() override;
    void onUnload() override;
    void onKeyDown(forms::KeyPress& key) override;

  private:
    void makeLabels();
    void makeList();
    void placeControls(int width, int listEnd);
    void showTitles();
    void showColumn(int column);

    void heading_Click(int column);
    void CmdSelect_Click();
    void CmdCancel_Click();
    [[nodiscard]] bool isOnRecord() const;

    SearchDescription m_description;
    QLabel *m_lblInstructA, *m_lblInstructC, *m_lblSearchTitle, *m_lblSearch;
    QPushButton *m_CmdSelect, *m_CmdCancel;
    std::unique_ptr<screens::ListPanel> m_panel;
    std::unique_ptr<SearchList> m_search;
};

} // namespace tol::search_print
