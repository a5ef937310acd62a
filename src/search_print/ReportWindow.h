// SPDX-License-Identifier: MIT
#pragma once

#include "forms/look/Twips.h"
#include "forms/windows/Form.h"
#include "runtime/RuntimeError.h"
#include "search_print/document/ReportView.h"
#include "search_print/document/VSPrinter.h"

#include <string>

class QLabel;
class QPushButton;

namespace tol::search_print {

class PreviewWidget;

/// A window in which a report is drawn, previewed and printed. A derived window draws in onRun(); the run
/// starts with runReport(), from its Load or by cmdBegin. While it runs cmdBegin stops it; afterwards
/// cmdBegin enlarges the preview and brings it back, PgDn, PgUp, Home and End turn the pages, Up and Down
/// scroll, and "P" prints, which cmdBegin stops as well. On a small screen the preview shrinks. Closed during
/// the run, the window goes when the run has come to its next keepPrinting() and ended.
class ReportWindow : public forms::Form, public ReportView {
  public:
    explicit ReportWindow(const QString& name);
    ~ReportWindow() override;

    [[nodiscard]] VSPrinter& printer() { return m_printer; }
    [[nodiscard]] PreviewWidget& preview() { return *m_preview; }
    [[nodiscard]] QPushButton& cmdBegin() { return *m_cmdBegin; }
    [[nodiscard]] QPushButton& CmdExit() { return *m_cmdExit; }
    [[nodiscard]] QLabel& lblProcess() { return *m_lblProcess; }
    [[nodiscard]] ReportState state() const { return m_state; }

    void showState(ReportState state) override;
    void setProcess(const std::string& text) override;
    bool keepPrinting() override;

  protected:
    /// Draws the report. True when the preview may be used, as vdPrintFinish() returns it.
    virtual bool onRun() = 0;
    void runReport();
    /// The end of a Load that failed: a box, and a window with nothing but the exit button.
    void showLoadError(const runtime::RuntimeError& error);

    /// Letter of the paper's orientation by which the enlarged view is fitted.
    [[nodiscard]] virtual std::string viewOrientation() const { return "P"; }
    [[nodiscard]] int savedOrientation() const { return m_savedOrientation; }

    void onUnload() override;
    void onKeyDown(forms::KeyPress& key) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void print();
    void beginClicked();
    void switchView();
    void layOut();

    VSPrinter m_printer;
    PreviewWidget* m_preview;
    QPushButton* m_cmdBegin;
    QPushButton* m_cmdExit;
    QLabel* m_lblProcess;
    forms::Place m_savedPlace; // of the preview
    int m_savedOrientation;
    ReportState m_state = ReportState::Ready;
    std::string m_process; // what the line says
    bool m_running = false;
    bool m_stopped = false;
    bool m_printDone = false;
};

/// Turns the preview's pages by PgDn, PgUp, Home and End. Whether the key was one of them.
bool vdPrintKeys(VSPrinter& printer, int keyCode);

} // namespace tol::search_print
