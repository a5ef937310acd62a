// SPDX-License-Identifier: MIT
#pragma once

#include "screens/BrowsePage.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tol::test {

/// A list's page without a window: captions and colours in an array.
class PlainPage : public screens::BrowsePage {
  public:
    PlainPage(int rows, int columns);

    void setCaption(int row, int column, const std::string& caption) override;
    [[nodiscard]] std::string caption(int row, int column) const override;
    void setRowColor(int row, std::uint32_t color) override;
    void takeFocus() override { ++focusTaken; }
    [[nodiscard]] bool isShown() const override { return shown; }

    /// Each row's captions, trimmed and joined by a blank, behind ">" in the highlighted rows, without the
    /// blank rows at the end.
    [[nodiscard]] std::vector<std::string> drawing() const;
    [[nodiscard]] std::vector<int> highlighted() const;

    int focusTaken = 0;
    bool shown = true;

  private:
    struct Row {
        std::vector<std::string> captions;
        std::uint32_t color = 0;
    };
    std::vector<Row> m_rows;
};

} // namespace tol::test
