// SPDX-License-Identifier: MIT
#pragma once

#include "data/OpenTable.h"

#include <cstdint>
#include <string>

namespace tol::rights {

/// How many rows a copied list has.
struct CopiedList {
    std::int64_t modules = 0;
    std::int64_t items = 0;
};

/// Replaces the modules and User Access Items of the network database (its full path) by those that
/// ZOVDEF.MDB of the current folder delivers, their tags included. No other table is touched: rights stay
/// good for items of the same tag. Nothing is merged; an item that was added by hand is gone afterwards.
///
/// Both databases are open before anything is deleted. From then on an error passes through, or an end in the
/// middle leaves, what was copied so far; the next copy makes that good.
CopiedList CopyUAIList(const std::string& netDatabase);

/// The same in two steps, for who has to know whether anything can have been deleted.
class UAIListCopy {
  public:
    /// Opens both databases.
    explicit UAIListCopy(const std::string& netDatabase);
    /// To be called once.
    CopiedList run();

  private:
    data::OpenTable m_net, m_delivered;
    data::Recordset m_items, m_deliveredItems;
};

} // namespace tol::rights
