// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace tol::search_print {

class VSPrinter;

/// Asks in the platform's print dialog where to, and prints the document there: on a printer, or to a PDF
/// file, which needs no printer at all. What goes wrong is told in a box.
void printWithDialog(QWidget& owner, const VSPrinter& document);

} // namespace tol::search_print
