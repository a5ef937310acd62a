// SPDX-License-Identifier: MIT
#include "shell/vdfunctions/vdGetNewTag.h"

#include "data/OpenTable.h"
#include "runtime/Conversions.h"
#include "runtime/Host.h"
#include "runtime/RuntimeError.h"
#include "shell/vdfunctions/vdBoxes.h"
#include "shell/vdfunctions/vdLocation.h"
#include "shell/vdfunctions/vdNullCheck.h"

#include <limits>

namespace tol::shell {
namespace {

std::int32_t inRange(std::int64_t number) {
    if (number < std::numeric_limits<std::int32_t>::min() ||
        number > std::numeric_limits<std::int32_t>::max())
        runtime::raise(runtime::errOverflow);
    return static_cast<std::int32_t>(number);
}

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
        data::OpenTable counter("wksMAIN", database, table);
        counter.workspace.BeginTrans();
        const std::int32_t number = takeNumber(counter.rows, field);
        const std::int32_t tag = inRange(inRange(prefix * numbersOfPrefix) + std::int64_t{number});
        counter.workspace.CommitTrans(data::dbForceOSFlush);
        counter.Close();
        // Part of the routine's contract: a counter that can't be opened again hands out nothing.
        data::OpenTable("wksMAIN", database, table).Close();
        return tag;
    } catch (const runtime::RuntimeError& error) {
        showBox("Attempt to Assign New Tag Number Failed.\n" + error.description(),
                runtime::MsgIcon::Critical, "Error: vdGetNewTag");
        return 0;
    }
}

} // namespace tol::shell
