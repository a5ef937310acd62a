// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tol::search_print {

/// How far a report has come.
enum class ReportState {
    Ready,     ///< it can be begun
    Running,   ///< it is drawn or printed, and can be stopped
    Done,      ///< its document may be previewed and printed
    Maximised, ///< so it may, and the preview fills the screen
};

/// What a report shows of itself while it is drawn: a report window and the terminal program each implement
/// it. Every call is made on the caller's thread.
class ReportView {
  public:
    virtual ~ReportView() = default;

    virtual void showState(ReportState state) = 0;
    /// The line that tells the progress and the end.
    virtual void setProcess(const std::string& text) = 0;
    /// Gives way to pending events, once per row. False when the report is to stop: it was cancelled, or
    /// its window is gone.
    virtual bool keepPrinting() = 0;
};

} // namespace tol::search_print
