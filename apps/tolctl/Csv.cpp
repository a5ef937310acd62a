// SPDX-License-Identifier: MIT
#include "tolctl/Csv.h"

#include <algorithm>

namespace tol::ctl {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

class CsvReader {
  public:
    explicit CsvReader(std::string_view text) : m_text(text) {
        if (m_text.starts_with(byteOrderMark))
            m_text.remove_prefix(byteOrderMark.size());
    }

    std::vector<CsvRecord> read();

  private:
    [[nodiscard]] bool atEnd() const { return m_at == m_text.size(); }
    [[nodiscard]] bool at(std::string_view any) const {
        return !atEnd() && any.find(m_text[m_at]) != std::string_view::npos;
    }
    CsvRecord record();
    std::string field(bool& wellFormed);
    std::string quoted(bool& wellFormed);
    std::string_view plain();
    char take();
    void passLineEnd();

    std::string_view m_text;
    std::size_t m_at = 0;
    std::size_t m_line = 1;
};

std::vector<CsvRecord> CsvReader::read() {
    std::vector<CsvRecord> records;
    while (!atEnd()) {
        if (!at("\r\n"))
            records.push_back(record());
        passLineEnd();
    }
    return records;
}

CsvRecord CsvReader::record() {
    CsvRecord record{m_line, {}, true};
    record.fields.push_back(field(record.wellFormed));
    while (at(",")) {
        ++m_at;
        record.fields.push_back(field(record.wellFormed));
    }
    return record;
}

// What stands behind the closing quote belongs to the field, so that nothing of a bad line is lost.
std::string CsvReader::field(bool& wellFormed) {
    const bool isQuoted = at("\"");
    std::string text = isQuoted ? quoted(wellFormed) : std::string();
    const std::string_view rest = plain();
    if (isQuoted ? !rest.empty() : rest.find('"') != std::string_view::npos)
        wellFormed = false;
    return text.append(rest);
}

std::string CsvReader::quoted(bool& wellFormed) {
    std::string text;
    ++m_at;
    while (!atEnd()) {
        const char next = take();
        if (next != '"')
            text += next;
        else if (at("\""))
            text += take();
        else
            return text;
    }
    wellFormed = false;
    return text;
}

std::string_view CsvReader::plain() {
    const std::size_t end = std::min(m_text.find_first_of(",\r\n", m_at), m_text.size());
    const std::string_view text = m_text.substr(m_at, end - m_at);
    m_at = end;
    return text;
}

/// The next character of a quoted field, in which lines are counted as well.
char CsvReader::take() {
    const char next = m_text[m_at++];
    if (next == '\n' || (next == '\r' && !at("\n")))
        ++m_line;
    return next;
}

void CsvReader::passLineEnd() {
    if (atEnd())
        return;
    if (m_text.substr(m_at).starts_with("\r\n"))
        ++m_at;
    ++m_at;
    ++m_line;
}

} // namespace

std::vector<CsvRecord> readCsv(std::string_view text) {
    return CsvReader(text).read();
}

void appendCsv(std::string& text, std::span<const std::string> fields) {
    const char* separator = "";
    for (const std::string& field : fields) {
        text += separator;
        separator = ",";
        // An empty line would be none, so that a record of one empty field needs its quotes.
        const bool quotes =
            field.find_first_of(",\"\r\n") != std::string::npos || (field.empty() && fields.size() == 1);
        text += quotes ? "\"" : "";
        for (const char letter : field)
            text.append(letter == '"' ? 2 : 1, letter);
        text += quotes ? "\"" : "";
    }
    text += "\r\n";
}

} // namespace tol::ctl
