// SPDX-License-Identifier: MIT
#include "rights/model/CopyUAIList.h"

#include "data/OpenTable.h"

#include <initializer_list>

namespace tol::rights {
namespace {

using data::Recordset;

void empty(Recordset& rows) {
    for (; !rows.AtEOF(); rows.MoveNext())
        rows.Delete();
}

std::int64_t copy(Recordset& from, Recordset& into, const char* index,
                  std::initializer_list<const char*> fields) {
    std::int64_t copied = 0;
    for (from.Index(index); !from.AtEOF(); from.MoveNext(), ++copied) {
        into.AddNew();
        for (const char* field : fields)
            into.Fields(field).Value(from.Fields(field).Value());
        into.Update();
    }
    return copied;
}

} // namespace

CopiedList CopyUAIList(const std::string& netDatabase) {
    data::OpenTable net("wksNET", netDatabase, "MODULES");
    Recordset items = net.database.OpenRecordset("USERACCESSITEMS");
    data::OpenTable delivered("wksDBU", "ZOVDEF.MDB", "MODULES");
    Recordset deliveredItems = delivered.database.OpenRecordset("USERACCESSITEMS");

    empty(net.rows);
    empty(items);
    CopiedList copied;
    copied.modules = copy(delivered.rows, net.rows, "MODULES", {"MODULEID", "MODULENAME"});
    copied.items =
        copy(deliveredItems, items, "USERACCESSITEMS", {"UAITAG", "MODULEID", "UAICODE", "Desc", "FORMNAME"});
    delivered.Close();
    net.Close();
    return copied;
}

} // namespace tol::rights
