// SPDX-License-Identifier: MIT
#include "search_print/search/SearchColumns.h"

#include "runtime/Conversions.h"
#include "search_print/search/BarList.h"

#include <string_view>

namespace tol::search_print {
namespace {

void takeFormat(SearchColumn& column, std::string_view entry) {
    column.ColType = entry.substr(0, 1);
    if (entry.size() > 1)
        column.ColFormat = entry.substr(1);
}

} // namespace

SearchColumns searchColumns(const SearchDescription& description) {
    using Column = SearchColumn&;
    using Entry = std::string_view;
    SearchColumns columns;
    splitBars(description.IndexList, columns, [](Column column, Entry entry) { column.ColIndex = entry; });
    splitBars(description.FieldList, columns, [](Column column, Entry entry) { column.ColField = entry; });
    splitBars(description.FormatList, columns, takeFormat);
    splitBars(description.SizeList, columns, [](Column column, Entry entry) {
        column.ColSize = runtime::toInteger(runtime::leadingNumber(entry));
    });
    splitBars(description.TitleList, columns, [](Column column, Entry entry) { column.ColTitle = entry; });
    splitBars(description.WidthList, columns, [](Column column, Entry entry) {
        column.ColWidth = runtime::toLong(runtime::leadingNumber(entry));
    });
    splitBars(description.AlignList, columns, [](Column column, Entry entry) {
        column.ColAlign = runtime::toInteger(runtime::leadingNumber(entry));
    });
    return columns;
}

} // namespace tol::search_print
