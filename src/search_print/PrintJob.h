// SPDX-License-Identifier: MIT
#pragma once

#include "search_print/document/PdfFile.h"

#include <span>

class QPrinter;
class QWidget;

namespace tol::search_print {

class VSPrinter;
struct Page;

/// Asks in the platform's print dialog where to, and prints the document there: on a printer, or to a PDF
/// file, which needs no printer at all. What goes wrong is told in a box.
void printWithDialog(QWidget& owner, const VSPrinter& document, const PageProgress& progress);

/// Paints pages of the document on a printer: on the paper that is set up there, to which larger pages are
/// shrunk. False when the printer takes no job. Stopped, it calls the job off.
bool printOn(QPrinter& printer, const VSPrinter& document, std::span<const Page> pages,
             const PageProgress& progress = nullptr);

} // namespace tol::search_print
