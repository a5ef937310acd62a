// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QString>

#include <array>
#include <string>
#include <string_view>

namespace tol::search_print {

/// A font as a report names it: a family of the reports' own time, a size in points.
struct FontSpec {
    std::string name = "Arial";
    double size = 10;
    bool bold = false;
    bool operator==(const FontSpec&) const = default;
};

/// The installed family that stands in for a named one: same widths, so that columns fit as they were laid
/// out. A family without a substitute stands for itself.
std::string substituteFamily(const std::string& name);

/// A font with its measures in twips. They are taken at one fixed resolution, without hinting, kerning or
/// ligatures, so that pages are the same on every screen and printer. Needs a QGuiApplication.
class DocumentFont {
  public:
    explicit DocumentFont(FontSpec spec);

    [[nodiscard]] const FontSpec& spec() const { return m_spec; }
    /// For a painter whose unit is the twip.
    [[nodiscard]] const QFont& font() const { return m_font; }
    [[nodiscard]] double ascent() const { return m_ascent; }
    [[nodiscard]] double height() const { return m_height; }
    [[nodiscard]] double width(std::string_view text) const;

  private:
    FontSpec m_spec;
    QFont m_font;
    double m_ascent, m_height;
    std::array<double, 128> m_advances{}; // of the ASCII characters; most texts have no others
};

/// The text as it goes on paper: one line, in which line breaks and other controls are blanks.
QString printableText(std::string_view text);

} // namespace tol::search_print
