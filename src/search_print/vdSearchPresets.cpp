// SPDX-License-Identifier: MIT
#include "search_print/vdSearchPresets.h"

#include "search_print/vdSearch.h"

namespace tol::search_print {

std::string vdSearchUAIInModule(const std::string& DBPath, const runtime::Value& moduleId,
                                const std::string& moduleName) {
    return vdSearch({.DBPath = DBPath,
                     .DBName = "ZOVNET",
                     .TableName = "USERACCESSITEMS",
                     .IndexList = "USERACCESSITEMS|UAIDESC",
                     .WindowTitle = "Search UAI Codes",
                     .SearchTitle = "UAI Codes for Module: " + moduleName,
                     .FieldList = "UAICODE|DESC",
                     .FormatList = "C|C",
                     .SizeList = "8|50",
                     .TitleList = "UAI Code|Description",
                     .WidthList = "1000|6000",
                     .AlignList = "2|0",
                     .DefaultColumn = 2,
                     .KeyValue1 = moduleId,
                     .KeyField1 = "MODULEID"});
}

std::string vdSearchUAI(const std::string& DBPath) {
    return vdSearch({.DBPath = DBPath,
                     .DBName = "ZOVNET",
                     .TableName = "USERACCESSITEMS",
                     .IndexList = "UAIDESC|UAICODE",
                     .WindowTitle = "Search UAI Codes",
                     .SearchTitle = " ",
                     .FieldList = "DESC|UAICODE",
                     .FormatList = "C|C",
                     .SizeList = "50|8",
                     .TitleList = "Description|UAI Code",
                     .WidthList = "6000|1000",
                     .AlignList = "0|2",
                     .DefaultColumn = 2});
}

std::string vdSearchURT(const std::string& DBPath) {
    return vdSearch({.DBPath = DBPath,
                     .DBName = "ZOVNET",
                     .TableName = "URTEMPLATES",
                     .IndexList = "URTCODE|URTNAME",
                     .WindowTitle = "Search URT Codes",
                     .SearchTitle = " ",
                     .FieldList = "URTCODE|URTNAME",
                     .FormatList = "C|C",
                     .SizeList = "8|40",
                     .TitleList = "URT Code|Description",
                     .WidthList = "1000|6000",
                     .AlignList = "0|0",
                     .DefaultColumn = 2});
}

} // namespace tol::search_print
