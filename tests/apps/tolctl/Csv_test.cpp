// SPDX-License-Identifier: MIT
#include "tolctl/Csv.h"

#include <gmock/gmock.h>

namespace tol::ctl {
namespace {

using testing::ElementsAre;

using Fields = std::vector<std::string>;

std::vector<Fields> fieldsOf(std::string_view text) {
    std::vector<Fields> result;
    for (const CsvRecord& record : readCsv(text)) {
        EXPECT_TRUE(record.wellFormed) << record.line;
        result.push_back(record.fields);
    }
    return result;
}

TEST(Csv, ReadsFieldsBetweenCommas) {
    EXPECT_THAT(fieldsOf("a,b\nc,,"), ElementsAre(Fields{"a", "b"}, Fields{"c", "", ""}));
    EXPECT_THAT(fieldsOf(","), ElementsAre(Fields{"", ""}));
    EXPECT_THAT(fieldsOf(" a , b "), ElementsAre(Fields{" a ", " b "}));
}

TEST(Csv, ReadsQuotedFields) {
    EXPECT_THAT(fieldsOf("\"a,b\",\"c\"\"d\",\"\""), ElementsAre(Fields{"a,b", "c\"d", ""}));
    EXPECT_THAT(fieldsOf("\"a\r\nb\",c\nd"), ElementsAre(Fields{"a\r\nb", "c"}, Fields{"d"}));
    EXPECT_THAT(fieldsOf("\"\"\"\""), ElementsAre(Fields{"\""}));
}

TEST(Csv, EveryLineEndIsOne) {
    for (const char* text : {"a\nb\n", "a\r\nb\r\n", "a\rb\r", "a\nb", "a\n\nb", "\r\n\r\na\r\r\nb\r\n\n"})
        EXPECT_THAT(fieldsOf(text), ElementsAre(Fields{"a"}, Fields{"b"}));
}

TEST(Csv, PassesOverAByteOrderMark) {
    EXPECT_THAT(fieldsOf("\xEF\xBB\xBF\"a\",b"), ElementsAre(Fields{"a", "b"}));
    EXPECT_THAT(fieldsOf("\xEF\xBB\xBF"), ElementsAre());
    EXPECT_THAT(fieldsOf(""), ElementsAre());
}

TEST(Csv, TellsTheLineOnWhichARecordBegins) {
    std::vector<std::size_t> lines;
    for (const CsvRecord& record : readCsv("a\r\n\"b\r\nb\nb\rb\"\n\nc"))
        lines.push_back(record.line);
    EXPECT_THAT(lines, ElementsAre(1, 2, 7));
}

TEST(Csv, TellsWhichRecordsAreNotWellFormed) {
    for (const char* text : {"\"a\"b,c", "\"a\" ,c", "a\"b,c", "c,\"", "c,\"a\"\"", "\"\"a,b"}) {
        const std::vector<CsvRecord> records = readCsv(text);
        ASSERT_EQ(records.size(), 1U) << text;
        EXPECT_FALSE(records[0].wellFormed) << text;
        EXPECT_EQ(records[0].fields.size(), 2U) << text;
    }
    EXPECT_TRUE(readCsv("a\"\nb")[1].wellFormed);
}

TEST(Csv, WritesWhatItReads) {
    const std::vector<Fields> records = {
        {"a", "b,c", "d\"e"}, {"two\r\nlines", "", "\r", "\n"}, {""}, {" x "}};
    std::string text;
    for (const Fields& fields : records)
        appendCsv(text, fields);
    EXPECT_EQ(text, "a,\"b,c\",\"d\"\"e\"\r\n\"two\r\nlines\",,\"\r\",\"\n\"\r\n\"\"\r\n x \r\n");
    EXPECT_EQ(fieldsOf(text), records);
}

} // namespace
} // namespace tol::ctl
