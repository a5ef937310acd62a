// SPDX-License-Identifier: MIT
#include "runtime/Conversions.h"
#include "shell/vdfunctions/DatabaseName.h"
#include "shell/vdfunctions/MessageBox.h"
#include "shell/vdfunctions/vdfunctions.h"

#include <limits>

namespace tol::shell {
namespace {

std::int32_t inRange(std::int64_t number) {
    if (number < std::numeric_limits<std::int32_t>::min() ||
        number > std::numeric_limits<std::int32_t>::max())
        runtime::raise(runtime::errOverflow);
    return static_cast<std::int32_t>(number);
}

/// The table of a counter, open for one change that others wait for.
struct CounterTable {
    data::Workspace wksMAIN;
    data::Database file;
    data::Recordset rows;

    CounterTable(const std::string& database, const std::string& table)
        : wksMAIN(data::DBEngine::CreateWorkspace("wksMAIN")),
          file(wksMAIN.OpenDatabase(database)),
          rows(file.OpenRecordset(table, data::dbOpenTable, data::dbSeeChanges, data::dbPessimistic)) {}

    void close() {
        rows.Close();
        file.Close();
        wksMAIN.Close();
    }
};

/// Hands out the number that the counter holds and stores the next one.
std::int32_t takeNumber(data::Recordset& rows, const std::string& field) {
    if (rows.RecordCount() == 0) {
        rows.AddNew();
        rows.Update();
    }
    rows.MoveFirst();
    std::int32_t number = runtime::toLong(vdNullCheck(rows.Fields(field)));
    if (number == 0)
        number = 1;
    rows.Edit();
    rows.Fields(field).Value(inRange(std::int64_t{number} + 1));
    rows.Update();
    return number;
}

} // namespace

std::int32_t vdGetNewTag(std::string_view folder, const std::string& field, std::string database,
                         std::string table, std::int32_t prefix) {
    constexpr std::int64_t numbersOfPrefix = 1'000'000;
    database = databaseName(folder, database);
    if (table.empty())
        table = "SYSTAGS";
    try {
        CounterTable counter(database, table);
        counter.wksMAIN.BeginTrans();
        const std::int32_t number = takeNumber(counter.rows, field);
        const std::int32_t tag = inRange(inRange(prefix * numbersOfPrefix) + std::int64_t{number});
        counter.wksMAIN.CommitTrans(data::dbForceOSFlush);
        counter.close();
        // Part of the routine's contract: a counter that can't be opened again hands out nothing.
        CounterTable(database, table).close();
        return tag;
    } catch (const runtime::RuntimeError& error) {
        showBox("Attempt to Assign New Tag Number Failed.\n" + error.description(),
                runtime::MsgIcon::Critical, "Error: vdGetNewTag");
        return 0;
    }
}

} // namespace tol::shell
