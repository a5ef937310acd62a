// SPDX-License-Identifier: MIT
#include "search_print/vdPrintView.h"

#include "runtime/Text.h"
#include "search_print/PreviewWidget.h"
#include "search_print/ReportWindow.h"

#include <QLabel>
#include <QPushButton>

#include <algorithm>
#include <vector>

namespace tol::search_print {
namespace {

using forms::toTwips;

constexpr int spaceAboveButtons = 8; // pixels

forms::Place placeOf(const QWidget& control) {
    return {toTwips(control.x()), toTwips(control.y()), toTwips(control.width()), toTwips(control.height())};
}

void moveTo(QWidget& control, int left, int top) {
    control.move(forms::toPixels(left), forms::toPixels(top));
}

void setTop(QWidget& control, int top) {
    control.move(control.x(), forms::toPixels(top));
}

/// Shows or hides the window's controls but for a timer. Those that stay are not touched, since hiding a
/// control takes the focus away from it.
void showControls(ReportWindow& window, bool visible, const std::vector<const QWidget*>& but = {}) {
    for (QWidget* control : window.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        if (control->objectName() != "Timer1" && !control->isWindow() &&
            std::ranges::find(but, control) == but.end())
            control->setVisible(visible);
}

void layOutMaximised(ReportWindow& window, bool landscape, bool roomy) {
    const int width = toTwips(window.width());
    const int height = toTwips(window.height());
    if (height < 400 || width < 100)
        return;
    const bool alreadyMaximised = window.cmdBegin().text() == "&Restore";
    showControls(window, false, {&window.cmdBegin(), &window.CmdExit(), &window.lblProcess()});
    const forms::Place exit = placeOf(window.CmdExit());
    const int top = height - (roomy ? 900 : 540) - exit.height;
    const int exitLeft = width - 250 - exit.width;
    moveTo(window.CmdExit(), exitLeft, top);
    moveTo(window.cmdBegin(), exitLeft - 150 - toTwips(window.cmdBegin().width()), top);
    setTop(window.lblProcess(), top);
    window.setBeginCaption("&Restore");
    window.cmdBegin().show();
    window.CmdExit().show();
    window.lblProcess().show();
    if (width >= 3000) {
        // A maximised window's own left and top edge are those of the screen.
        forms::place(window.preview(), {50, 300, width - 100, height - (roomy ? 1400 : 1000)});
        window.preview().setFreeBelow(window.preview().geometry().bottom() + spaceAboveButtons -
                                      window.cmdBegin().y());
        window.preview().show();
        window.printer().ZoomMode(landscape ? zoomPageWidth : zoomWholePage);
    }
    if (!alreadyMaximised)
        window.cmdBegin().setFocus();
}

void layOutNormal(ReportWindow& window, const forms::Place& saved) {
    showControls(window, true);
    const int top = toTwips(window.height()) - 1100;
    const int exitLeft = toTwips(window.width()) - 300 - toTwips(window.CmdExit().width());
    moveTo(window.CmdExit(), exitLeft, top);
    moveTo(window.cmdBegin(), exitLeft - toTwips(window.cmdBegin().width()) - 100, top);
    window.setBeginCaption("&Max View");
    setTop(window.lblProcess(), top);
    window.preview().setFreeBelow(0);
    forms::place(window.preview(), saved);
}

} // namespace

void vdPrintView(ReportWindow& window, bool maximised, const forms::Place& saved,
                 std::string_view orientation, bool roomy) {
    if (maximised)
        layOutMaximised(window, runtime::upperCase(orientation) == "L", roomy);
    else
        layOutNormal(window, saved);
}

} // namespace tol::search_print
