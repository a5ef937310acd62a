// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tol::screens {

/// What a list is painted on: a page of rows, each with one caption for each column. Rows and columns
/// count from 0. It only shows what the list tells it; the list asks nothing back of what it shows.
class BrowsePage {
  public:
    virtual ~BrowsePage() = default;

    virtual void setCaption(int row, int column, const std::string& caption) = 0;
    virtual void setHighlight(int row, bool on) = 0;
    /// What the highlighted row says now, for those who can't see it.
    virtual void announce(const std::string& text) = 0;
    /// Gives the keyboard of the window back to the list, unless it is out of use.
    virtual void takeFocus() = 0;
    /// Whether the window of the page is visible.
    [[nodiscard]] virtual bool isShown() const = 0;
};

} // namespace tol::screens
