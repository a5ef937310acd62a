// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tol::search_print {

/// What a report shows of itself while it is drawn: a report window and the terminal program each implement
/// it. Every call is made on the caller's thread.
class ReportView {
  public:
    virtual ~ReportView() = default;

    /// The caption of the button that begins a report, stops it and later enlarges the view.
    virtual void setBeginCaption(const std::string& caption) = 0;
    virtual void showBegin() = 0;
    /// The line that tells the progress and the end.
    virtual void setProcess(const std::string& text) = 0;
    virtual void showProcess() = 0;
    /// Gives way to pending events, once per row. False when the report is to stop: it was cancelled, or
    /// its window is gone.
    virtual bool keepPrinting() = 0;
};

} // namespace tol::search_print
