// SPDX-License-Identifier: MIT
#include "search_print/document/vdPrintCells.h"

#include "shell/vdfunctions/vdTexts.h"

namespace tol::search_print {
namespace {

constexpr double cellPen = 5;

/// The text on one line; one too wide for the cell is printed smaller where it stands.
void printInCell(VSPrinter& printer, double x, double y, double height, double width, std::string_view text,
                 const CellLook& look) {
    const double textWidth = printer.TextWidth(text);
    printer.CurrentX(x + 80);
    if (look.right)
        printer.CurrentX(x + width - textWidth - 50);
    else if (look.center)
        printer.CurrentX(x + (width - textWidth) / 2);
    printer.CurrentY(y + height / 4);
    if (look.decimal)
        printer.CurrentX(x + width * 0.95 - textWidth);
    if (textWidth + 100 > width)
        printer.FontSize(6);
    printer.Text(text);
}

/// The text in lines between the margins. Blanks in front of it bring its first line to the cell.
void printWrapped(VSPrinter& printer, double x, double y, double height, std::string_view text,
                  double indent) {
    std::string indented;
    while (printer.TextWidth(indented) < x - 300 + indent)
        indented += ' ';
    indented += text;
    printer.CurrentX(x + 50);
    printer.CurrentY(y + height / 4);
    if (printer.wrappedHeight(indented) > height)
        printer.FontSize(7);
    printer.wrappedText(indented);
}

} // namespace

double vdPrintTitleCell(VSPrinter& printer, double x, double y, double height, double width,
                        std::string_view first, std::string_view second, bool leftAlign, bool largeFont) {
    DrawingStyle after = printer.style();
    after.PenWidth = cellPen;
    const bool twoLines = shell::vdNotBlank(second);
    printer.BrushColor(qRgb(230, 230, 230));
    printer.PenWidth(cellPen);
    printer.FontName("Arial");
    printer.FontSize(largeFont ? 16 : 8);
    printer.FontBold(true);
    printer.TextAlign(alignLeft);
    printer.DrawRectangle(x, y, x + width, y + (twoLines ? 2 * height : height));
    const auto centered = [&](std::string_view text) { return x + (width - printer.TextWidth(text)) / 2; };
    printer.CurrentX(leftAlign ? x + 40 : centered(first));
    printer.CurrentY(y + 40);
    printer.Text(first);
    if (twoLines) {
        printer.CurrentX(centered(second));
        printer.CurrentY(y + 240);
        printer.Text(second);
    }
    printer.setStyle(after);
    return x + width;
}

double vdPrintCell(VSPrinter& printer, double x, double y, double height, double width, std::string_view text,
                   CellLook look) {
    DrawingStyle after = printer.style();
    after.font.bold = false;
    printer.BrushStyle(brushTransparent);
    printer.PenWidth(cellPen);
    printer.DrawRectangle(x, y, x + width, y + height);
    printer.FontName("Courier New");
    printer.FontSize(8);
    printer.FontBold(look.bold);
    if (shell::vdNotBlank(text)) {
        if (look.fit)
            printWrapped(printer, x, y, height, text, look.indent);
        else
            printInCell(printer, x, y, height, width, text, look);
    }
    printer.setStyle(after);
    return x + width;
}

} // namespace tol::search_print
