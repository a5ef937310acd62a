// SPDX-License-Identifier: MIT
#include "search_print/document/vdPrintRun.h"

#include "runtime/NumberFormat.h"
#include "runtime/Text.h"
#include "shell/vdfunctions/vdBoxes.h"

namespace tol::search_print {
namespace {

constexpr double usualMargin = 500;

double orUsual(double margin) {
    return margin == 0 ? usualMargin : margin;
}

} // namespace

bool vdPrintStart(ReportView& view, VSPrinter& printer, std::string_view orientation, bool keepNavigation,
                  const PrintMargins& margins) {
    view.showState(ReportState::Running);
    if (printer.Error() != 0) {
        shell::showBox("Printer Problem Detected", runtime::MsgIcon::Critical, "Printer Error");
        return false;
    }
    printer.PrintQuality(-4);
    printer.Orientation(runtime::upperCase(orientation) == "L" ? orientationLandscape : orientationPortrait);
    printer.colourMode(colourModeColour);
    printer.MarginLeft(orUsual(margins.left));
    printer.MarginRight(orUsual(margins.right));
    printer.MarginTop(orUsual(margins.top));
    printer.MarginBottom(orUsual(margins.bottom));
    if (!keepNavigation)
        printer.previewNavigation(navigationRunning);
    printer.PenStyle(penSolid);
    printer.PenWidth(10);
    printer.StartDoc();
    return true;
}

bool vdPrintFinish(ReportView& view, VSPrinter& printer, int savedOrientation, bool started) {
    printer.EndDoc();
    printer.ZoomMode(zoomWholePage);
    printer.previewNavigation(navigationFree);
    printer.PenWidth(0);
    printer.Orientation(savedOrientation);
    view.showState(ReportState::Done);
    view.setProcess(started ? "Report Finished, Press 'P' to Print" : "Report STOPPED BY USER (INCOMPLETE)");
    return true;
}

void showPageProgress(ReportView& view, const VSPrinter& printer) {
    view.setProcess("Printing Page: " + runtime::format(printer.CurrentPage(), "####"));
}

} // namespace tol::search_print
