// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/UpdateState.h"

#include <functional>
#include <string>

namespace tol::update {

/// Deletes every index of the table, whether or not it has the field in work.
void deleteAllIndexes(data::TableDef& table);

/// Rebuilds the field in work under its wanted type or size by way of a second field, row by row. The old
/// field stays whole until the second one takes its place, in one step. After a stop or an error before that
/// the second field stays in the table until a later pass removes it as an old field.
class FieldConversion {
  public:
    explicit FieldConversion(UpdateState& state) : m_s(state) {}

    void ConvertFieldType();
    void ChangeFieldSize();

  private:
    void showLabels();
    void hideLabels();
    void appendTemporaryField(bool memoAllowsZeroLength);
    void eachRow(data::Recordset& rows, const std::function<void()>& change);
    void convertRows();
    void resizeRows();
    void replaceOldField(const std::string& action);
    void fillBlanks();
    void askAboutUnconvertible();

    UpdateState& m_s;
};

} // namespace tol::update
