// SPDX-License-Identifier: MIT
#include "data/sqlite/definitions/DeclaredTypes.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

/// Whatever a column is declared as gives a field type with a size that it can have, and what we would
/// declare for that field reads back as the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tol::data;
    const std::string_view declared(reinterpret_cast<const char*>(data), size);
    const sqlite::ColumnType column = sqlite::readDeclaredType(declared);
    const bool hasSize = column.type == dbText ? column.size >= 1 && column.size <= maxTextSize
                                               : column.size == reportedSize(column.type, 0);
    const sqlite::ColumnType own = sqlite::readDeclaredType(sqlite::declaredType(column.type, column.size));
    if (!isFieldType(column.type) || !hasSize || own.type != column.type || own.size != column.size)
        std::abort();
    return 0;
}
