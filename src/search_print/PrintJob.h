// SPDX-License-Identifier: MIT
#pragma once

#include <span>

class QPrinter;
class QWidget;

namespace tol::search_print {

class VSPrinter;
struct Page;

/// Asks in the platform's print dialog where to, and prints the document there: on a printer, or to a PDF
/// file, which needs no printer at all. What goes wrong is told in a box.
void printWithDialog(QWidget& owner, const VSPrinter& document);

/// Paints pages of the document on a printer: on the paper that is set up there, to which larger pages are
/// shrunk. False when the printer takes no job.
bool printOn(QPrinter& printer, const VSPrinter& document, std::span<const Page> pages);

} // namespace tol::search_print
