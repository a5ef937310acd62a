// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <istream>
#include <streambuf>
#include <vector>

namespace tol::data::json {

/// Passes a stream on in blocks and can tell in which line the character read last stands. Counting
/// costs nothing until it is asked for.
class LineCountingBuffer : public std::streambuf {
  public:
    explicit LineCountingBuffer(std::istream& source);

    /// From 1. A line feed still belongs to the line that it ends; the end is in the line behind it.
    [[nodiscard]] std::size_t line() const;

  protected:
    /// Raises a disk error when the source fails; its mere end is no failure.
    int_type underflow() override;

  private:
    std::istream& m_source;
    std::vector<char> m_block;
    std::size_t m_linesBefore = 0;
};

} // namespace tol::data::json
