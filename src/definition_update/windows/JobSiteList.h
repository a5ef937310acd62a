// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/DefinitionUpdate.h"
#include "forms/events/Keys.h"
#include "screens/ListPanel.h"
#include "screens/browse/BrowseList.h"

#include <memory>
#include <string>

namespace tol::update {

/// The Job Sites on the update window, with a tick on those that are tagged. The tags themselves are kept
/// by the update, so a row that scrolls in gets its tick from them. Its controls are the form's.
class JobSiteList {
  public:
    /// `tag` is what the action button and the key T do.
    JobSiteList(forms::Form& form, int left, int top, forms::EventProcedure tag);

    /// Shows the sites that the update has open, from the first one.
    void open(DefinitionUpdate& update);
    /// To be called before the update goes.
    void close();
    /// The sites are closed from now on: the list can no longer be used, and no row is highlighted.
    void retire();

    /// Tags the highlighted site, or takes its tag off, and goes on to the next row. A box tells when there
    /// are as many tags as there can be.
    void toggleTag();
    /// Tags the first sites, as many as there can be.
    void tagAll();
    void clearTags();
    /// Shows the highlighted site as tagged.
    void tickCurrent();
    /// The highlighted site's bookmark, " " for none.
    [[nodiscard]] std::string currentMark() const;

    void keyDown(forms::KeyPress& key);
    void takeFocus() { m_panel.takeFocus(); }
    void setInUse(bool inUse) { m_panel.setInUse(inUse); }
    [[nodiscard]] bool hasFocus() const { return m_panel.hasFocus(); }
    [[nodiscard]] int width() const { return m_panel.width(); }
    [[nodiscard]] int height() const { return m_panel.height(); }

  private:
    [[nodiscard]] screens::BrowseDescription description() const;
    [[nodiscard]] std::string tickOf(const data::Recordset& site) const;
    [[nodiscard]] bool isEmpty() const;
    bool toggle(const TaggedSite& site);
    void setTick(bool tagged);

    screens::ListPanel m_panel;
    forms::EventProcedure m_tag;
    std::unique_ptr<screens::BrowseList> m_list; ///< while the sites are open
    DefinitionUpdate* m_update = nullptr;
};

} // namespace tol::update
