// SPDX-License-Identifier: MIT
#include "search_print/PrintColumn.h"

#include "runtime/Conversions.h"
#include "runtime/Text.h"
#include "search_print/search/BarList.h"
#include "search_print/vdPrint.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdfunctions/vdTexts.h"

#include <string_view>

namespace tol::search_print {
namespace {

void takeFormat(PrintColumn& column, std::string_view entry) {
    column.PrintType = entry.substr(0, 1);
    if (entry.size() > 1)
        column.PrintFormat = entry.substr(1);
    column.PrintDecimal = column.PrintFormat.find('.') != std::string::npos;
}

} // namespace

std::string PrintColumn::PrintText() const {
    if (PrintWidth == 0 || !PrintFieldRef)
        return {};
    const runtime::Value value = shell::vdNullCheck(*PrintFieldRef);
    if (PrintType == "B")
        return runtime::toBoolean(value) ? "Yes" : "No";
    if (PrintType == "N")
        return shell::vdFormatOrDash(value, PrintFormat, false);
    return PrintType == "C" || shell::vdIsBlank(PrintType) ? " " + runtime::toText(value) : std::string();
}

PrintColumns printColumns(const PrintRequest& request) {
    PrintColumns columns;
    splitBars(request.FieldList, columns,
              [](PrintColumn& column, std::string_view entry) { column.PrintField = runtime::trim(entry); });
    splitBars(request.FormatList, columns, takeFormat);
    splitBars(request.SizeList, columns, [](PrintColumn& column, std::string_view entry) {
        column.PrintSize = runtime::toInteger(runtime::leadingNumber(entry));
    });
    splitBars(request.TitleList, columns,
              [](PrintColumn& column, std::string_view entry) { column.PrintTitle = entry; });
    splitBars(request.WidthList, columns, [](PrintColumn& column, std::string_view entry) {
        column.PrintWidth = runtime::toLong(runtime::leadingNumber(entry));
    });
    splitBars(request.AlignList, columns, [](PrintColumn& column, std::string_view entry) {
        column.PrintCenter = entry == "+^" || entry == "-^";
    });
    return columns;
}

} // namespace tol::search_print
