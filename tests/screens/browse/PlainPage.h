// SPDX-License-Identifier: MIT
#pragma once

#include "screens/browse/BrowsePage.h"

#include <string>
#include <vector>

namespace tol::test {

/// A list's page without a window: captions and highlights in an array.
class PlainPage : public screens::BrowsePage {
  public:
    PlainPage(int rows, int columns);

    void setCaption(int row, int column, const std::string& caption) override;
    void setHighlight(int row, bool on) override;
    void announce(const std::string& text) override { announced = text; }
    void takeFocus() override { ++focusTaken; }
    [[nodiscard]] bool isShown() const override { return shown; }

    /// Each row's captions, trimmed and joined by a blank, behind ">" in the highlighted rows, without the
    /// blank rows at the end.
    [[nodiscard]] std::vector<std::string> drawing() const;
    [[nodiscard]] std::vector<int> highlighted() const;
    [[nodiscard]] std::string caption(int row, int column) const;

    int focusTaken = 0;
    std::string announced;
    bool shown = true;

  private:
    struct Row {
        std::vector<std::string> captions;
        bool highlighted = false;
    };
    std::vector<Row> m_rows;
};

} // namespace tol::test
