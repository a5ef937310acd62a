// SPDX-License-Identifier: MIT
#include "data/json/LineCountingBuffer.h"

#include "support/Raises.h"

#include <gtest/gtest.h>

#include <sstream>

namespace tol::test {
namespace {

using data::json::LineCountingBuffer;

TEST(LineCountingBuffer, TellsTheLineOfTheCharacterReadLast) {
    std::istringstream source("ab\nc\n\nd");
    LineCountingBuffer buffer(source);
    EXPECT_EQ(buffer.line(), 1U);
    std::string lines;
    while (buffer.sbumpc() != std::char_traits<char>::eof())
        lines += std::to_string(buffer.line());
    EXPECT_EQ(lines, "1112234");
}

TEST(LineCountingBuffer, CountsAcrossBlocks) {
    std::string text;
    for (int line = 0; line < 100000; ++line)
        text += "x\n";
    std::istringstream source(text + "y");
    LineCountingBuffer buffer(source);
    for (std::size_t read = 1; read <= text.size() + 1; ++read) {
        ASSERT_NE(buffer.sbumpc(), std::char_traits<char>::eof());
        if (read % 4999 == 0 || read > text.size()) {
            ASSERT_EQ(buffer.line(), 1 + (read - 1) / 2) << read;
        }
    }
    EXPECT_EQ(buffer.sbumpc(), std::char_traits<char>::eof());
}

TEST(LineCountingBuffer, ALongLineWithoutLineFeedIsOneLine) {
    std::istringstream source(std::string(100000, 'x') + "\n");
    LineCountingBuffer buffer(source);
    for (int read = 0; read <= 100000; ++read)
        buffer.sbumpc();
    EXPECT_EQ(buffer.line(), 1U);
    EXPECT_EQ(buffer.sbumpc(), std::char_traits<char>::eof());
    EXPECT_EQ(buffer.line(), 2U);
}

class FailingSource : public std::streambuf {
  protected:
    int_type underflow() override { throw std::runtime_error("the disk is gone"); }
};

TEST(LineCountingBuffer, AFailingSourceIsAnErrorAndNoEnd) {
    FailingSource failing;
    std::istream source(&failing);
    LineCountingBuffer buffer(source);
    EXPECT_EQ(errorOf([&] { buffer.sbumpc(); }), runtime::errDiskOrNetwork);
}

} // namespace
} // namespace tol::test
