// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/Value.h"

#include <string>
#include <vector>

class QWidget;

namespace tol::search_print {

/// Only the rows whose field equals the value are printed. The fields are the leading ones of the index.
struct PrintKey {
    runtime::Value PrintKeyValue;
    std::string PrintKeyField;
};

/// What a list report prints: rows of one table, in columns told by lists with "|" between the entries.
struct PrintRequest {
    std::string PrintPath = {};   ///< folder of the database; blank: the file name stands alone
    std::string PrintDBName = {}; ///< with extension
    std::string PrintTable = {};
    std::string PrintIndex = {}; ///< blank: stored order
    std::string PrintWindowTitle = {};
    std::string ReportName = {}; ///< title of the report
    std::string ModuleText = {}; ///< of the page's foot
    std::string FieldList = {};
    std::string FormatList = {}; ///< "C" text, "N" number with its format behind it, "B" yes or no
    std::string SizeList = {};
    std::string TitleList = {};
    std::string WidthList = {};           ///< twips; 0 leaves the column out
    std::string AlignList = {};           ///< "+^" or "-^" centres the column
    std::string HeadingAbove = {};        ///< line above the title, may be blank
    std::string HeadingBelow = {};        ///< and below it
    bool PrintOption = false;             ///< makes no difference to a report
    std::vector<PrintKey> PrintKeys = {}; ///< at most three
};

/// Shows the list in a report window in front of its owner; returns when that has been closed.
void vdPrint(QWidget& owner, const PrintRequest& request);

} // namespace tol::search_print
