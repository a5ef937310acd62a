// SPDX-License-Identifier: MIT
#include "search_print/ReportWindow.h"

#include "forms/controls/Controls.h"
#include "runtime/Host.h"
#include "search_print/PreviewWidget.h"
#include "search_print/PrintJob.h"
#include "search_print/vdPrintView.h"
#include "shell/vdwindows/vdFormLoadError.h"

#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>

#include <fmt/format.h>

#include <array>

namespace tol::search_print {
namespace {

constexpr int keyP = 'P';
constexpr int withCtrlOrAlt = 2 | 4;
constexpr int windowWidth = 10500, windowHeight = 9495;
constexpr int leastWidth = 7800, leastHeight = 4500; // for the line at the bottom, and a page to be made out
constexpr int buttonHeight = 480;
constexpr forms::Place previewPlace{150, 150, windowWidth - 300, 8500};

} // namespace

ReportWindow::ReportWindow(const QString& name)
    : Form(name), m_savedPlace(previewPlace), m_savedOrientation(m_printer.Orientation()) {
    setSizable(true);
    setScaleSize(windowWidth, windowHeight);
    setMinimumSize(forms::toPixels(leastWidth), forms::toPixels(leastHeight));
    setKeyPreview(true);
    m_preview = new PreviewWidget(*this, m_printer, previewPlace);
    m_lblProcess = &forms::addLabel(*this, "lblProcess", {}, {300, 0, 0, buttonHeight});
    m_cmdBegin = &forms::addButton(*this, "cmdBegin", "&Begin", {0, 0, 1380, buttonHeight},
                                   [this] { beginClicked(); });
    m_cmdExit =
        &forms::addButton(*this, "CmdExit", "E&xit", {0, 0, 1380, buttonHeight}, [this] { unload(); });
    placeControls(*this, false, m_savedPlace);
    setCancelButton(m_cmdExit);
    m_printer.onPrint = [this](bool) { print(); };
}

ReportWindow::~ReportWindow() = default;

void ReportWindow::showState(ReportState state) {
    static constexpr std::array captions{"&Begin", "&Cancel", "&Max View", "&Restore"}; // by ReportState
    m_state = state;
    m_cmdBegin->setText(captions.at(static_cast<std::size_t>(state)));
    if (state == ReportState::Ready)
        return;
    m_lblProcess->show();
    if (state != ReportState::Running)
        m_cmdBegin->show();
}

void ReportWindow::setProcess(const std::string& text) {
    m_process = text;
    m_lblProcess->setText(QString::fromStdString(text));
}

bool ReportWindow::keepPrinting() {
    runtime::host().doEvents();
    return !m_stopped && !unloadWaits();
}

void ReportWindow::runReport() {
    const Busy busy(*this);
    const QScopedValueRollback running(m_running, true);
    m_stopped = false;
    m_printDone = onRun();
    if (!m_printDone)
        showState(ReportState::Ready);
}

// Page by page, like a run: the button stops it, and what is shown is the report as before.
void ReportWindow::print() {
    const Busy busy(*this);
    const QScopedValueRollback running(m_running, true);
    m_stopped = false;
    const ReportState before = m_state;
    const std::string process = m_process;
    printWithDialog(*this, m_printer, [this](int page, int pages) {
        showState(ReportState::Running);
        setProcess(fmt::format("Printing Page: {} of {}", page, pages));
        return keepPrinting();
    });
    showState(before);
    setProcess(m_stopped ? "Printing STOPPED BY USER (INCOMPLETE)" : process);
}

void ReportWindow::showLoadError(const runtime::RuntimeError& error) {
    shell::vdFormLoadError(*this, *m_cmdExit, objectName().toStdString(), std::to_string(error.number()),
                           error.description());
}

void ReportWindow::onUnload() {
    m_printer.Orientation(m_savedOrientation);
}

void ReportWindow::onKeyDown(forms::KeyPress& key) {
    if (m_running || (key.shift & withCtrlOrAlt) != 0)
        return;
    if (key.code == keyP && m_printDone)
        m_printer.PrintDoc(true);
    else if (key.code == keyP && m_cmdBegin->isVisible())
        m_cmdBegin->click();
    else if (m_printDone && (key.code == forms::keyUp || key.code == forms::keyDown))
        m_preview->scrollBy(key.code == forms::keyUp ? -1 : 1);
    else if (!m_printDone || !vdPrintKeys(m_printer, key.code))
        return;
    key.code = forms::keyNone;
}

void ReportWindow::resizeEvent(QResizeEvent* event) {
    Form::resizeEvent(event);
    if (m_printDone && !m_running)
        layOut();
    else
        placeControls(*this, isMaximized(), m_savedPlace);
}

void ReportWindow::beginClicked() {
    if (m_running)
        m_stopped = true;
    else if (m_printDone)
        switchView();
    else
        runReport();
}

void ReportWindow::switchView() {
    if (windowState() != Qt::WindowNoState)
        showNormal();
    else
        showMaximized();
    layOut();
}

void ReportWindow::layOut() {
    vdPrintView(*this, isMaximized(), m_savedPlace, viewOrientation());
}

bool vdPrintKeys(VSPrinter& printer, int keyCode) {
    switch (keyCode) {
    case forms::keyPageDown:
        printer.PreviewPage(printer.PreviewPage() + 1);
        return true;
    case forms::keyPageUp:
        printer.PreviewPage(printer.PreviewPage() - 1);
        return true;
    case forms::keyHome:
        printer.PreviewPage(1);
        return true;
    case forms::keyEnd:
        printer.PreviewPage(printer.PageCount());
        return true;
    default:
        return false;
    }
}

} // namespace tol::search_print
