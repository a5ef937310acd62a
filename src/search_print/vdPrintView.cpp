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

constexpr int spaceAboveButtons = 8;    // pixels
constexpr int frameHeight = 405;        // twips: title bar and edges, which the heights below count in
constexpr int leastHeight = 400;        // of a window that is laid out maximised, in twips, as are
constexpr int leastWidth = 100;         // these widths
constexpr int leastPreviewWidth = 3000; // of a window that has room for the preview
constexpr int spaceBesideProcess = 150; // between the text and the first button

forms::Place placeOf(const QWidget& control) {
    return {toTwips(control.x()), toTwips(control.y()), toTwips(control.width()), toTwips(control.height())};
}

void moveTo(QWidget& control, int left, int top) {
    control.move(forms::toPixels(left), forms::toPixels(top));
}

/// The height of the window with its frame.
int wholeHeight(const ReportWindow& window) {
    return toTwips(window.height()) + frameHeight;
}

/// The text has what the buttons leave of their line.
void placeProcess(ReportWindow& window, int top) {
    const forms::Place now = placeOf(window.lblProcess());
    const int right = toTwips(window.cmdBegin().x()) - spaceBesideProcess;
    forms::place(window.lblProcess(), {now.left, top, std::max(0, right - now.left), now.height});
}

/// Shows or hides the window's controls but for a timer. Those that stay are not touched, since hiding a
/// control takes the focus away from it.
void showControls(ReportWindow& window, bool visible, const std::vector<const QWidget*>& but = {}) {
    for (QWidget* control : window.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        if (control->objectName() != "Timer1" && !control->isWindow() &&
            std::ranges::find(but, control) == but.end())
            control->setVisible(visible);
}

bool hasRoomMaximised(const ReportWindow& window) {
    return toTwips(window.height()) >= leastHeight && toTwips(window.width()) >= leastWidth;
}

bool hasRoomForPreview(const ReportWindow& window) {
    return toTwips(window.width()) >= leastPreviewWidth;
}

void placeMaximised(ReportWindow& window, bool roomy) {
    const int width = toTwips(window.width());
    const int height = wholeHeight(window);
    const forms::Place exit = placeOf(window.CmdExit());
    const int top = height - (roomy ? 900 : 540) - exit.height;
    const int exitLeft = width - 250 - exit.width;
    moveTo(window.CmdExit(), exitLeft, top);
    moveTo(window.cmdBegin(), exitLeft - 150 - toTwips(window.cmdBegin().width()), top);
    placeProcess(window, top);
    if (!hasRoomForPreview(window))
        return;
    // A maximised window's own left and top edge are those of the screen.
    forms::place(window.preview(), {50, 300, width - 100, height - (roomy ? 1400 : 1000)});
    window.preview().setFreeBelow(window.preview().geometry().bottom() + spaceAboveButtons -
                                  window.cmdBegin().y());
}

void placeNormal(ReportWindow& window, const forms::Place& saved) {
    const int width = toTwips(window.width());
    const int top = wholeHeight(window) - 1100;
    const int exitLeft = width - 300 - toTwips(window.CmdExit().width());
    moveTo(window.CmdExit(), exitLeft, top);
    moveTo(window.cmdBegin(), exitLeft - toTwips(window.cmdBegin().width()) - 100, top);
    placeProcess(window, top);
    window.preview().setFreeBelow(0);
    // A window on a small screen has less room than the preview had when its place was saved.
    forms::place(window.preview(), {saved.left, saved.top, std::min(saved.width, width - 2 * saved.left),
                                    std::min(saved.height, top - 2 * saved.top)});
}

void layOutMaximised(ReportWindow& window, bool landscape, bool roomy) {
    const bool alreadyMaximised = window.state() == ReportState::Maximised;
    showControls(window, false, {&window.cmdBegin(), &window.CmdExit(), &window.lblProcess()});
    placeMaximised(window, roomy);
    window.showState(ReportState::Maximised);
    window.CmdExit().show();
    if (hasRoomForPreview(window)) {
        window.preview().show();
        window.printer().ZoomMode(landscape ? zoomPageWidth : zoomWholePage);
    }
    if (!alreadyMaximised)
        window.cmdBegin().setFocus();
}

void layOutNormal(ReportWindow& window, const forms::Place& saved) {
    showControls(window, true);
    placeNormal(window, saved);
    window.showState(ReportState::Done);
}

} // namespace

void placeControls(ReportWindow& window, bool maximised, const forms::Place& saved) {
    if (!maximised)
        placeNormal(window, saved);
    else if (hasRoomMaximised(window))
        placeMaximised(window, false);
}

void vdPrintView(ReportWindow& window, bool maximised, const forms::Place& saved,
                 std::string_view orientation, bool roomy) {
    if (!maximised)
        layOutNormal(window, saved);
    else if (hasRoomMaximised(window))
        layOutMaximised(window, runtime::upperCase(orientation) == "L", roomy);
}

} // namespace tol::search_print
