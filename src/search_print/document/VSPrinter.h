// SPDX-License-Identifier: MIT
#pragma once

#include "search_print/document/PageList.h"
#include "search_print/document/Paper.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tol::search_print {

// Values of the printing control's members.
enum PaperOrientation : int { orientationPortrait = 0, orientationLandscape = 1 };
enum PenStyles : int { penSolid = 0 };
enum BrushStyles : int { brushSolid = 0, brushTransparent = 1 };
enum TextAlignment : int { alignLeft = 0, alignCenter = 1, alignRight = 2 };
enum ZoomModes : int { zoomPageWidth = 3, zoomWholePage = 4 };
enum ColourModes : int { colourModeMonochrome = 1, colourModeColour = 2 };
enum NavigationModes : int { navigationFree = 0, navigationRunning = 7 };

/// The settings with which a document is drawn.
struct DrawingStyle {
    int PenStyle = penSolid;
    double PenWidth = 10;
    QRgb BrushColor = 0xFFFFFFFF;
    int BrushStyle = brushSolid;
    FontSpec font;
    int TextAlign = alignLeft;
};

/// The printing control: a document of pages that a report draws and that can then be previewed and
/// printed. Measures are twips from the upper left corner of the page. A page begins with the first thing
/// drawn on it or with NewPage; what is drawn while no document is started is dropped. The paper's size
/// is that of the orientation in force; a page keeps the size with which it was begun. The preview itself is
/// a widget that follows this object.
class VSPrinter {
  public:
    explicit VSPrinter(Paper paper = defaultPaper()) : m_paper(paper) {}
    VSPrinter(const VSPrinter&) = delete;
    VSPrinter& operator=(const VSPrinter&) = delete;

    /// Not 0 when the printer can't be used.
    [[nodiscard]] int Error() const { return m_error; }
    void setError(int error) { m_error = error; }

    /// What the document is called on the way to a printer, and in a PDF file.
    void documentTitle(std::string title) { m_documentTitle = std::move(title); }
    [[nodiscard]] const std::string& documentTitle() const { return m_documentTitle; }

    // How the document is printed and previewed.
    void PrintQuality(int quality) { m_printQuality = quality; }
    [[nodiscard]] int PrintQuality() const { return m_printQuality; }
    [[nodiscard]] int Orientation() const { return m_orientation; }
    void Orientation(int orientation) { m_orientation = orientation; }
    void colourMode(int mode) { m_colourMode = mode; }
    [[nodiscard]] int colourMode() const { return m_colourMode; }
    /// Other than 0: the preview stays as it is, whatever a person does.
    void previewNavigation(int mode);
    [[nodiscard]] int previewNavigation() const { return m_navigation; }
    void ZoomMode(int mode);
    [[nodiscard]] int ZoomMode() const { return m_zoomMode; }

    [[nodiscard]] double MarginLeft() const { return m_marginLeft; }
    void MarginLeft(double margin) { m_marginLeft = margin; }
    [[nodiscard]] double MarginTop() const { return m_marginTop; }
    void MarginTop(double margin) { m_marginTop = margin; }
    [[nodiscard]] double MarginRight() const { return m_marginRight; }
    void MarginRight(double margin) { m_marginRight = margin; }
    [[nodiscard]] double MarginBottom() const { return m_marginBottom; }
    void MarginBottom(double margin) { m_marginBottom = margin; }
    [[nodiscard]] double PageWidth() const;
    [[nodiscard]] double PageHeight() const;

    // How the next things are drawn.
    [[nodiscard]] const DrawingStyle& style() const { return m_style; }
    void setStyle(const DrawingStyle& style);
    [[nodiscard]] int PenStyle() const { return m_style.PenStyle; }
    void PenStyle(int style) { m_style.PenStyle = style; }
    [[nodiscard]] double PenWidth() const { return m_style.PenWidth; }
    void PenWidth(double width) { m_style.PenWidth = width; }
    [[nodiscard]] QRgb BrushColor() const { return m_style.BrushColor; }
    void BrushColor(QRgb colour) { m_style.BrushColor = colour; }
    [[nodiscard]] int BrushStyle() const { return m_style.BrushStyle; }
    void BrushStyle(int style) { m_style.BrushStyle = style; }
    [[nodiscard]] const std::string& FontName() const { return m_style.font.name; }
    void FontName(const std::string& name);
    [[nodiscard]] double FontSize() const { return m_style.font.size; }
    void FontSize(double points);
    [[nodiscard]] bool FontBold() const { return m_style.font.bold; }
    void FontBold(bool bold);
    [[nodiscard]] int TextAlign() const { return m_style.TextAlign; }
    void TextAlign(int alignment) { m_style.TextAlign = alignment; }
    [[nodiscard]] double CurrentX() const { return m_currentX; }
    void CurrentX(double x) { m_currentX = x; }
    [[nodiscard]] double CurrentY() const { return m_currentY; }
    void CurrentY(double y) { m_currentY = y; }

    /// Size of a text in the current font.
    [[nodiscard]] double TextWidth(std::string_view text);
    [[nodiscard]] double TextHeight(std::string_view text);
    /// Height that wrappedText() would take.
    [[nodiscard]] double wrappedHeight(std::string_view text);

    /// Prints the text with its top at CurrentY: from CurrentX on, or centred between the margins, or up to
    /// the right one. CurrentX then stands behind the text.
    void Text(std::string_view text);
    /// Prints the text in as many lines as it needs between the margins; CurrentY then stands below it.
    void wrappedText(std::string_view text);
    /// The text on one line in the middle of a bordered box filled with BrushColor, from edge to edge as
    /// TextAlign has it. A text too wide for the box gets a smaller font.
    void TextBox(std::string_view text, double x, double y, double width, double height);
    /// A rectangle with the pen as border and the brush as inside. Without an area it is a line.
    void DrawRectangle(double x1, double y1, double x2, double y2);

    /// Begins a new document; the one before it is gone.
    void StartDoc();
    void NewPage();
    void EndDoc();
    /// Number of the page being built, 0 before the first.
    [[nodiscard]] int CurrentPage() const { return PageCount(); }
    [[nodiscard]] int PageCount() const { return static_cast<int>(m_list.pages.size()); }
    [[nodiscard]] const PageList& document() const { return m_list; }

    /// Number of the page on show, 0 for none. A page that does not exist is refused.
    [[nodiscard]] int PreviewPage() const { return m_previewPage; }
    void PreviewPage(int number);

    /// Prints the document, if it has a page, with the print dialog or without.
    void PrintDoc(bool dialog);

    /// What the preview and the window bring: told that something to be seen has changed, asked to print.
    std::function<void()> onPreviewChanged;
    std::function<void(bool dialog)> onPrint;

  private:
    void previewChanged() const;
    /// The page to draw on, null while no document is started.
    Page* page();
    void add(Primitive primitive);
    void addText(double x, double y, QString text);
    std::size_t fontPosition();
    const DocumentFont& font() { return m_list.font(fontPosition()); }
    [[nodiscard]] std::vector<QString> wrapped(std::string_view text);

    Paper m_paper;
    std::string m_documentTitle;
    PageList m_list;
    DrawingStyle m_style;
    std::optional<std::size_t> m_font; // of m_style, once it was used
    double m_marginLeft = 1440, m_marginTop = 1440, m_marginRight = 1440, m_marginBottom = 1440;
    double m_currentX = 0, m_currentY = 0;
    int m_error = 0;
    int m_printQuality = 0;
    int m_orientation = orientationPortrait;
    int m_colourMode = colourModeColour;
    int m_navigation = navigationFree;
    int m_zoomMode = zoomWholePage;
    int m_previewPage = 0;
    bool m_started = false;
};

} // namespace tol::search_print
