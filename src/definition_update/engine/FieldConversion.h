// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/TargetDatabase.h"

#include <functional>

namespace tol::update {

/// Deletes every index of the table, whether or not it has the field in work.
void deleteAllIndexes(data::TableDef& table);

/// Rebuilds a field under its wanted type or size by way of a second field, row by row. The old
/// field stays whole until the second one takes its place, in one step. After a stop or an error before that
/// the second field stays in the table until a later pass removes it as an old field.
class FieldConversion {
  public:
    FieldConversion(TargetDatabase& database, data::TableDef& table, const WantedField& wanted)
        : m_db(database), m_run(database.run), m_table(table), m_wanted(wanted) {}

    void ConvertFieldType(int liveType);
    void ChangeFieldSize(int liveSize);

  private:
    void showLabels();
    void hideLabels();
    void appendTemporaryField(bool memoAllowsZeroLength);
    void eachRow(data::Recordset& rows, const std::function<void()>& change);
    void convertRows(int liveType);
    void resizeRows(int liveSize);
    void replaceOldField(ActivityKind kind);
    void fillBlanks();
    void askAboutUnconvertible();

    TargetDatabase& m_db;
    Run& m_run;
    data::TableDef& m_table;
    const WantedField& m_wanted;
    bool m_warns = true; // asks about values that can't convert
};

} // namespace tol::update
