// SPDX-License-Identifier: MIT
#include "search_print/PrintColumn.h"

#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "search_print/vdPrint.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdfunctions/vdTexts.h"

#include <string_view>

namespace tol::search_print {
namespace {

/// Gives each entry of a list to the column of its place.
template <typename Take>
void split(std::string_view list, PrintColumns& columns, Take&& take) {
    for (std::size_t place = 0;; ++place) {
        const std::size_t bar = list.find('|');
        if (place >= columns.size())
            runtime::raise(runtime::errSubscript);
        take(columns[place], list.substr(0, bar));
        if (bar == std::string_view::npos)
            return;
        list.remove_prefix(bar + 1);
    }
}

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
    split(request.FieldList, columns,
          [](PrintColumn& column, std::string_view entry) { column.PrintField = runtime::trim(entry); });
    split(request.FormatList, columns, takeFormat);
    split(request.SizeList, columns, [](PrintColumn& column, std::string_view entry) {
        column.PrintSize = runtime::toInteger(runtime::leadingNumber(entry));
    });
    split(request.TitleList, columns,
          [](PrintColumn& column, std::string_view entry) { column.PrintTitle = entry; });
    split(request.WidthList, columns, [](PrintColumn& column, std::string_view entry) {
        column.PrintWidth = runtime::toLong(runtime::leadingNumber(entry));
    });
    split(request.AlignList, columns, [](PrintColumn& column, std::string_view entry) {
        column.PrintCenter = entry == "+^" || entry == "-^";
    });
    return columns;
}

} // namespace tol::search_print
