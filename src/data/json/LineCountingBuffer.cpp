// SPDX-License-Identifier: MIT
#include "data/json/LineCountingBuffer.h"

#include "runtime/RuntimeError.h"

#include <algorithm>

namespace tol::data::json {
namespace {

constexpr std::size_t blockSize = std::size_t{64} * 1024;

std::size_t lineFeeds(const char* begin, const char* end) {
    return static_cast<std::size_t>(std::count(begin, end, '\n'));
}

} // namespace

LineCountingBuffer::LineCountingBuffer(std::istream& source) : m_source(source), m_block(blockSize) {}

std::size_t LineCountingBuffer::line() const {
    const char* lastRead = gptr() == eback() ? gptr() : gptr() - 1;
    return 1 + m_linesBefore + lineFeeds(eback(), lastRead);
}

LineCountingBuffer::int_type LineCountingBuffer::underflow() {
    m_linesBefore += lineFeeds(eback(), egptr());
    m_source.read(m_block.data(), static_cast<std::streamsize>(m_block.size()));
    if (m_source.bad())
        runtime::raise(runtime::errDiskOrNetwork, {"JSON"});
    setg(m_block.data(), m_block.data(), m_block.data() + m_source.gcount());
    return gptr() == egptr() ? traits_type::eof() : traits_type::to_int_type(*gptr());
}

} // namespace tol::data::json
