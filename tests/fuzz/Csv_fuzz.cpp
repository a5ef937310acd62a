// SPDX-License-Identifier: MIT
#include "tolctl/Csv.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

using tol::ctl::CsvRecord;

void require(bool holds) {
    if (!holds)
        std::abort();
}

} // namespace

/// Any text gives records on ever later lines; written again, they read as the same fields, now all well
/// formed.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::vector<CsvRecord> records =
        tol::ctl::readCsv(std::string_view(reinterpret_cast<const char*>(data), size));
    std::string text;
    std::size_t line = 0;
    for (const CsvRecord& record : records) {
        require(record.line > line && !record.fields.empty());
        line = record.line;
        tol::ctl::appendCsv(text, record.fields);
    }
    // A byte order mark is part of a field where it is not the text's first.
    if (text.starts_with("\xEF\xBB\xBF"))
        text.insert(0, "\r\n");
    const std::vector<CsvRecord> again = tol::ctl::readCsv(text);
    require(again.size() == records.size());
    for (std::size_t i = 0; i < records.size(); ++i)
        require(again[i].wellFormed && again[i].fields == records[i].fields);
    return 0;
}
