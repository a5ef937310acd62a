// SPDX-License-Identifier: MIT
#pragma once

#include "screens/ListWindow.h"

#include <cstdint>
#include <functional>
#include <string>

namespace tol::test {

/// A list window with all that a description can ask for: the goods of one box, by number, in a table that
/// knows only their tags; a code that is looked up, a Y/N option, a search button, a label beside the
/// boxes, and packing slips that go with their goods.
class frmItems : public screens::ListWindow {
  public:
    /// A box of 0 stands for none.
    explicit frmItems(std::int32_t box);

    int prints = 0, details = 0;
    std::function<void()> atYield; ///< runs for each packing slip that a delete takes along

  protected:
    std::string databaseFile() override { return "STORE.MDB"; }
    void openMore(data::Database& database) override;
    void cmdPrint_Click() override { ++prints; }

  private:
    screens::ListWindowDescription description();
    screens::EditDescription edit();

    [[nodiscard]] std::string ofGoods(data::Recordset& item, const std::string& field);
    [[nodiscard]] std::string codeForEdit(data::Recordset& item);
    [[nodiscard]] std::string CheckCode(screens::EditedField& edited);
    void search();
    void tellGoods();
    void deleteSlips(data::Recordset& item);

    std::int32_t mBox;
    std::int32_t mGoodsTag = 0;
    data::Recordset m_goods, m_slips;
};

} // namespace tol::test
