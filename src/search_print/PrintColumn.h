// SPDX-License-Identifier: MIT
#pragma once

#include "data/Recordset.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace tol::search_print {

struct PrintRequest;

/// One column of a list report.
struct PrintColumn {
    std::string PrintField;
    std::optional<data::Field> PrintFieldRef; ///< none for a column without a field
    std::string PrintType;                    ///< "C", "N" or "B"; blank counts as "C"
    std::string PrintFormat;                  ///< of a number
    bool PrintDecimal = false;                ///< ends at 95 % of the cell
    std::int16_t PrintSize = 0;               ///< told by callers; the width is what counts
    std::string PrintTitle;
    std::int32_t PrintWidth = 0; ///< twips; 0: the column is skipped
    bool PrintCenter = false;

    /// The text of the current record's cell.
    [[nodiscard]] std::string PrintText() const;
};

using PrintColumns = std::array<PrintColumn, 13>;

/// The columns that the lists of the request describe. Raises 9 for a list of more than 13 entries, 6 for a
/// number out of range.
PrintColumns printColumns(const PrintRequest& request);

} // namespace tol::search_print
