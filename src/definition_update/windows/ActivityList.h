// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/DefinitionUpdate.h"
#include "forms/events/Keys.h"
#include "screens/ListPanel.h"
#include "screens/browse/BrowseList.h"

#include <memory>

class QLabel;

namespace tol::update {

/// The activity log on the update window. Between runs it is a list to browse in; during a run it follows
/// the rows that the run reports, and keys and clicks do nothing. Beside its caption the highlighted row, or
/// the one reported last, is on show with nothing cut. Its controls are the form's.
class ActivityList {
  public:
    ActivityList(forms::Form& form, int left, int top);

    /// Shows the log that the update has open, from its first row.
    void open(DefinitionUpdate& update);
    /// To be called before the log is closed.
    void close();
    /// The rows that follow take the places of those that are there, from the first one on.
    void reset();
    void show(const ActivityRow& row);

    void keyDown(forms::KeyPress& key);
    void takeFocus() { m_panel.takeFocus(); }
    void setInUse(bool inUse) { m_panel.setInUse(inUse); }
    [[nodiscard]] bool hasFocus() const { return m_panel.hasFocus(); }
    /// Extent with the caption, in twips.
    [[nodiscard]] int height() const;

  private:
    void showWhole(const std::string& text);

    const screens::BrowseDescription m_description;
    screens::ListPanel m_panel;
    screens::BrowseRows m_rows; ///< as a run reports them
    QLabel& m_rowText;
    std::unique_ptr<screens::BrowseList> m_list; ///< while the list can be browsed
    int m_nextRow = 0;
};

} // namespace tol::update
