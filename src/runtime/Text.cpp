// SPDX-License-Identifier: MIT
#include "runtime/Text.h"

#include "runtime/RuntimeError.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/coll.h>
#include <unicode/locid.h>
#include <unicode/stringpiece.h>
#include <unicode/utf8.h>

namespace tol::runtime {
namespace {

constexpr unsigned char firstPrintable = 0x20, lastPrintable = 0x7E;

icu::StringPiece piece(std::string_view text) {
    return {text.data(), static_cast<std::int32_t>(text.size())};
}

void check(UErrorCode status) {
    if (U_FAILURE(status))
        throw std::runtime_error(u_errorName(status));
}

using ByteMapping = void (*)(const char*, std::uint32_t, icu::StringPiece, icu::ByteSink&, icu::Edits*,
                             UErrorCode&);

template <ByteMapping map>
std::string mapCase(std::string_view text) {
    std::string result;
    icu::StringByteSink<std::string> sink(&result, static_cast<std::int32_t>(text.size()));
    UErrorCode status = U_ZERO_ERROR;
    map("", 0, piece(text), sink, nullptr, status);
    check(status);
    return result;
}

/// Maps the text by a rule for ASCII letters; false at the first character beyond ASCII.
template <char from, char to>
bool mapAscii(std::string_view text, std::string& result) {
    result.resize(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (static_cast<unsigned char>(c) > 0x7F)
            return false;
        result[i] = c >= from && c <= from + 25 ? static_cast<char>(c - from + to) : c;
    }
    return true;
}

/// The collator, and beside it the rank of every printable ASCII character in its order. The root
/// order has no contractions among these and gives each pair a difference of the first level or none,
/// so texts of such characters compare character by character through the ranks.
class Order {
  public:
    Order() {
        UErrorCode status = U_ZERO_ERROR;
        m_collator.reset(icu::Collator::createInstance(icu::Locale::getRoot(), status));
        check(status);
        m_collator->setStrength(icu::Collator::SECONDARY);
        for (unsigned char c = firstPrintable; c <= lastPrintable; ++c)
            m_rank[c] = rankAmongPrintable(c);
    }

    [[nodiscard]] int compare(std::string_view left, std::string_view right) const {
        const std::size_t common = std::min(left.size(), right.size());
        for (std::size_t i = 0; i < common; ++i) {
            const auto a = rank(left[i]), b = rank(right[i]);
            if (a == 0 || b == 0)
                return compareWhole(left, right);
            if (a != b)
                return allPrintable(left, i) && allPrintable(right, i) ? a - b : compareWhole(left, right);
        }
        if (!allPrintable(left, common) || !allPrintable(right, common))
            return compareWhole(left, right);
        return left.size() == right.size() ? 0 : left.size() < right.size() ? -1 : 1;
    }

    [[nodiscard]] int version() const {
        UVersionInfo version = {};
        m_collator->getVersion(version);
        std::uint32_t packed = 0;
        for (const std::uint8_t part : version)
            packed = packed << 8U | part;
        return static_cast<int>(packed & 0x7FFFFFFFU);
    }

  private:
    [[nodiscard]] std::uint8_t rank(char c) const { return m_rank[static_cast<unsigned char>(c)]; }

    [[nodiscard]] bool allPrintable(std::string_view text, std::size_t from) const {
        for (; from < text.size(); ++from)
            if (rank(text[from]) == 0)
                return false;
        return true;
    }

    [[nodiscard]] int compareWhole(std::string_view left, std::string_view right) const {
        UErrorCode status = U_ZERO_ERROR;
        const UCollationResult result = m_collator->compareUTF8(piece(left), piece(right), status);
        check(status);
        return result;
    }

    [[nodiscard]] std::uint8_t rankAmongPrintable(unsigned char c) const {
        const char text = static_cast<char>(c);
        std::uint8_t smaller = 0;
        for (unsigned char other = firstPrintable; other <= lastPrintable; ++other) {
            const char otherText = static_cast<char>(other);
            if (compareWhole({&otherText, 1}, {&text, 1}) < 0)
                ++smaller;
        }
        return static_cast<std::uint8_t>(smaller + 1);
    }

    std::unique_ptr<icu::Collator> m_collator;
    std::array<std::uint8_t, 256> m_rank{}; ///< 0 for what is not printable ASCII
};

const Order& order() {
    static const Order instance;
    return instance;
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion" // inside of ICU's macro
/// Where the character that starts at `at` ends. A byte that is no UTF-8 is a character of its own.
std::size_t endOfCharacter(std::string_view text, std::size_t at) {
    if (static_cast<unsigned char>(text[at]) < 0x80)
        return at + 1;
    std::size_t end = at;
    UChar32 character = 0;
    U8_NEXT(text.data(), end, text.size(), character);
    return character < 0 ? at + 1 : end;
}
#pragma GCC diagnostic pop

} // namespace

std::string_view trim(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string upperCase(std::string_view text) {
    std::string result;
    return mapAscii<'a', 'A'>(text, result) ? result : mapCase<&icu::CaseMap::utf8ToUpper>(text);
}

std::string lowerCase(std::string_view text) {
    std::string result;
    return mapAscii<'A', 'a'>(text, result) ? result : mapCase<&icu::CaseMap::utf8ToLower>(text);
}

std::size_t length(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); at = endOfCharacter(text, at))
        ++count;
    return count;
}

std::string_view left(std::string_view text, long count) {
    if (count < 0)
        raise(errInvalidCall);
    std::size_t end = 0;
    for (; end < text.size() && count > 0; --count)
        end = endOfCharacter(text, end);
    return text.substr(0, end);
}

std::string space(long count) {
    if (count < 0)
        raise(errInvalidCall);
    return std::string(static_cast<std::size_t>(count), ' ');
}

int compareText(std::string_view left, std::string_view right) {
    return order().compare(left, right);
}

int collationVersion() {
    return order().version();
}

} // namespace tol::runtime
