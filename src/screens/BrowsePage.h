// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace tol::screens {

/// A colour as 0xRRGGBB. Each channel is 0 to 255; what lies beyond is brought to the nearer end.
constexpr std::uint32_t rgb(int red, int green, int blue) {
    constexpr auto channel = [](int value) {
        return static_cast<std::uint32_t>(value < 0 ? 0 : value > 255 ? 255 : value);
    };
    return channel(red) << 16 | channel(green) << 8 | channel(blue);
}

/// What a list is painted on: a page of rows, each with one caption for each column. Rows and columns
/// count from 0. The page remembers its captions; the list asks it for them.
class BrowsePage {
  public:
    virtual ~BrowsePage() = default;

    virtual void setCaption(int row, int column, const std::string& caption) = 0;
    [[nodiscard]] virtual std::string caption(int row, int column) const = 0;
    /// Back colour of all labels of a row.
    virtual void setRowColor(int row, std::uint32_t color) = 0;
    /// Gives the keyboard of the window back to the list, unless it is out of use.
    virtual void takeFocus() = 0;
    /// Whether the window of the page is visible.
    [[nodiscard]] virtual bool isShown() const = 0;
};

} // namespace tol::screens
