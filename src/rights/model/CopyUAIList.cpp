// SPDX-License-Identifier: MIT
#include "rights/model/CopyUAIList.h"

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

UAIListCopy::UAIListCopy(const std::string& netDatabase)
    : m_net("wksNET", netDatabase, "MODULES"),
      m_delivered("wksDBU", "ZOVDEF.MDB", "MODULES"),
      m_items(m_net.database.OpenRecordset("USERACCESSITEMS")),
      m_deliveredItems(m_delivered.database.OpenRecordset("USERACCESSITEMS")) {}

CopiedList UAIListCopy::run() {
    empty(m_net.rows);
    empty(m_items);
    CopiedList copied;
    copied.modules = copy(m_delivered.rows, m_net.rows, "MODULES", {"MODULEID", "MODULENAME"});
    copied.items = copy(m_deliveredItems, m_items, "USERACCESSITEMS",
                        {"UAITAG", "MODULEID", "UAICODE", "Desc", "FORMNAME"});
    m_delivered.Close();
    m_net.Close();
    return copied;
}

CopiedList CopyUAIList(const std::string& netDatabase) {
    return UAIListCopy(netDatabase).run();
}

} // namespace tol::rights
