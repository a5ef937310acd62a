// SPDX-License-Identifier: MIT
#pragma once

#include "data/Recordset.h"
#include "runtime/Value.h"

#include <initializer_list>
#include <string>
#include <vector>

namespace tol::update {

/// Finds rows by their leading key fields where the questions come in the order of the index, as they do
/// when two definitions are compared: the row found last and the one behind it are looked at before the
/// recordset is searched. Between two questions nobody else moves the recordset.
class RowSearch {
  public:
    /// `fields` are those of the index, in its order.
    RowSearch(data::Recordset& rows, std::string index, std::vector<data::Field> fields);

    /// Whether there is a row with these keys, which may be fewer than the index has. If there is, the
    /// recordset stands on one.
    bool find(std::initializer_list<std::string> keys);

  private:
    [[nodiscard]] bool standsOn(std::initializer_list<std::string> keys) const;
    bool moveNext();
    bool search(std::initializer_list<std::string> keys);

    data::Recordset& m_rows;
    std::string m_index;
    std::vector<data::Field> m_fields;
    bool m_onRow = false;
};

} // namespace tol::update
