// SPDX-License-Identifier: MIT
#include "search_print/document/vdPrintFooter.h"

#include "platform/System.h"
#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "screens/input/Dates.h"

#include <fmt/format.h>

namespace tol::search_print {
namespace {

constexpr double stripHeight = 200;
constexpr QRgb labelColour = qRgb(225, 225, 225);
constexpr QRgb valueColour = qRgb(255, 255, 255);

/// The present date and time: "1/31/2003 4:05:00 PM", with the time also at midnight.
std::string nowText() {
    const runtime::DateParts now = runtime::dateParts(platform::now());
    const int hour = now.hour % 12 == 0 ? 12 : now.hour % 12;
    return fmt::format("{}/{}/{} {}:{:02}:{:02} {}", now.month, now.day, now.year, hour, now.minute,
                       now.second, now.hour < 12 ? "AM" : "PM");
}

struct PrintTime {
    std::string date, time;
};

/// Seconds are left out, and a one-digit hour leaves a blank behind the minutes.
PrintTime printTime() {
    const std::string now = nowText();
    const std::size_t blank = now.find(' ');
    const std::string_view clock = std::string_view(now).substr(blank + 1);
    std::string time(clock.substr(0, 5));
    if (time.back() == ':')
        time.back() = ' ';
    time.append(" ").append(runtime::trim(clock.substr(8)));
    int pivot = 0;
    return {screens::vdDateCheck(now.substr(0, blank), 10, pivot), time};
}

/// Puts the cells of the strip side by side.
class Strip {
  public:
    explicit Strip(VSPrinter& printer)
        : m_printer(printer),
          m_x(printer.MarginLeft()),
          m_top(printer.PageHeight() - printer.MarginBottom() - stripHeight) {}

    [[nodiscard]] double x() const { return m_x; }
    void label(std::string_view text, double width) { cell(text, width, labelColour, alignRight); }
    void value(std::string_view text, double width, int alignment = alignLeft) {
        cell(text, width, valueColour, alignment);
    }

  private:
    void cell(std::string_view text, double width, QRgb colour, int alignment) {
        m_printer.BrushColor(colour);
        m_printer.TextAlign(alignment);
        m_printer.TextBox(text, m_x, m_top, width, stripHeight);
        m_x += width;
    }

    VSPrinter& m_printer;
    double m_x, m_top;
};

void drawStrip(VSPrinter& printer, std::string_view moduleText, std::string_view reportText, bool date,
               bool time, bool page) {
    Strip strip(printer);
    strip.label("Module  ", 760);
    strip.value(fmt::format("  {}", moduleText), 2380);
    strip.label("Report  ", 680);
    const double later = (date ? 1440 : 0) + (time ? 1280 : 0) + (page ? 920 : 0);
    strip.value(fmt::format(" {}", reportText),
                printer.PageWidth() - printer.MarginRight() - strip.x() - later);
    const PrintTime now = printTime();
    if (date) {
        strip.label("Date ", 440);
        strip.value("  " + now.date, 1000);
    }
    if (time) {
        strip.label("Time ", 480);
        strip.value("  " + now.time, 800, alignCenter);
    }
    if (page) {
        strip.label("Page ", 460);
        strip.value(fmt::format("  {}", printer.CurrentPage()), 460);
    }
}

} // namespace

int vdPrintFooter(VSPrinter& printer, std::string_view moduleText, std::string_view reportText, bool date,
                  bool time, bool page) {
    const DrawingStyle before = printer.style();
    int result = 0;
    try {
        printer.FontName("Arial");
        printer.FontSize(8);
        printer.FontBold(false);
        printer.PenWidth(5);
        printer.BrushStyle(brushSolid);
        drawStrip(printer, moduleText, reportText, date, time, page);
        result = 1;
    } catch (const runtime::RuntimeError&) {
        // A report is worth more than its footer: it goes on with what there is of the strip.
    }
    printer.setStyle(before);
    return result;
}

} // namespace tol::search_print
