// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tol::ctl {

class ProgressLine;

/// Writes the report of the log to a PDF file; needs no display. Raises 75 when the file can't be written,
/// stopped() when a stop was asked for.
void writePdfLog(const std::string& file, ProgressLine& progress);

} // namespace tol::ctl
