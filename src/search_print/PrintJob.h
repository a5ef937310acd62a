// SPDX-License-Identifier: MIT
#pragma once

class QPrinter;
class QWidget;

namespace tol::search_print {

class VSPrinter;

/// Asks in the platform's print dialog where to, and prints the document there: on a printer, or to a PDF
/// file, which needs no printer at all. What goes wrong is told in a box.
void printWithDialog(QWidget& owner, const VSPrinter& document);

/// Prints the document as the printer is set up: on its paper, to which larger pages are shrunk, and its
/// pages only. False when the printer takes no job.
bool printOn(QPrinter& printer, const VSPrinter& document);

} // namespace tol::search_print
