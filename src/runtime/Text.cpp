// SPDX-License-Identifier: MIT
#include "runtime/Text.h"

#include "runtime/RuntimeError.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <fmt/format.h>
#include <memory>
#include <stdexcept>
#include <unicode/coll.h>
#include <unicode/locid.h>
#include <unicode/stringpiece.h>
#include <unicode/uchar.h>
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

bool isAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion" // inside of ICU's macros
/// Takes the character that starts at `at`; negative for a byte that is no UTF-8, which is one of its own.
UChar32 takeCharacter(std::string_view text, std::size_t& at) {
    std::size_t end = at;
    UChar32 character = 0;
    U8_NEXT(text.data(), end, text.size(), character);
    at = character < 0 ? at + 1 : end;
    return character;
}

void appendCharacter(std::string& text, UChar32 character) {
    std::array<char, U8_MAX_LENGTH> bytes{};
    std::size_t length = 0;
    U8_APPEND_UNSAFE(bytes.data(), length, character);
    text.append(bytes.data(), length);
}
#pragma GCC diagnostic pop

std::size_t endOfCharacter(std::string_view text, std::size_t at) {
    takeCharacter(text, at);
    return at;
}

UChar32 foldLetter(UChar32 letter) {
    return u_foldCase(letter, U_FOLD_CASE_DEFAULT);
}

/// Another case of a letter, or the letter itself where that would make it another one: the upper case of
/// a dotless i is the upper case of i, the lower case of a dotted I is the lower case of I.
template <UChar32 (*otherCase)(UChar32)>
UChar32 mapLetter(UChar32 letter) {
    const UChar32 mapped = otherCase(letter);
    return foldLetter(mapped) == foldLetter(letter) ? mapped : letter;
}

template <char from, char to>
char mapAscii(char c) {
    return c >= from && c <= from + 25 ? static_cast<char>(c - from + to) : c;
}

/// Maps each letter by itself, those of ASCII (from A or a on) without a look into the tables.
template <UChar32 (*map)(UChar32), char from, char to>
std::string mapLetters(std::string_view text) {
    std::string result(text);
    result.resize(static_cast<std::size_t>(std::ranges::find_if_not(text, isAscii) - text.begin()));
    std::ranges::transform(result, result.begin(), mapAscii<from, to>);
    for (std::size_t at = result.size(); at < text.size();) {
        if (isAscii(text[at])) {
            result += mapAscii<from, to>(text[at++]);
            continue;
        }
        const std::size_t start = at;
        const UChar32 letter = takeCharacter(text, at);
        const UChar32 mapped = letter < 0 ? letter : map(letter);
        if (mapped == letter)
            result.append(text, start, at - start);
        else
            appendCharacter(result, mapped);
    }
    return result;
}

/// The collator, and beside it the rank of every printable ASCII character in its order. The root
/// order has no contractions among these and gives each pair that differs in more than case a difference
/// of the first level, so texts of such characters compare character by character through the ranks.
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

    [[nodiscard]] std::string version() const {
        UVersionInfo version = {};
        m_collator->getVersion(version);
        return fmt::format("{}", fmt::join(version, "."));
    }

  private:
    [[nodiscard]] std::uint8_t rank(char c) const { return m_rank[static_cast<unsigned char>(c)]; }

    [[nodiscard]] bool allPrintable(std::string_view text, std::size_t from) const {
        for (; from < text.size(); ++from)
            if (rank(text[from]) == 0)
                return false;
        return true;
    }

    /// The collator passes over some characters and takes others for alike; what it does not tell apart
    /// follows the order of the folded texts.
    [[nodiscard]] int compareWhole(std::string_view left, std::string_view right) const {
        if (left == right)
            return 0;
        const std::string a = foldCase(left), b = foldCase(right);
        const int order = collate(a, b);
        return order != 0 ? order : a.compare(b);
    }

    [[nodiscard]] int collate(std::string_view left, std::string_view right) const {
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

} // namespace

std::string_view trim(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string upperCase(std::string_view text) {
    return mapLetters<mapLetter<u_toupper>, 'a', 'A'>(text);
}

std::string lowerCase(std::string_view text) {
    return mapLetters<mapLetter<u_tolower>, 'A', 'a'>(text);
}

std::string foldCase(std::string_view text) {
    return mapLetters<foldLetter, 'A', 'a'>(text);
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

bool sameText(std::string_view left, std::string_view right) {
    if (left == right)
        return true;
    const auto same = [](char a, char b) {
        return isAscii(a) && mapAscii<'A', 'a'>(a) == mapAscii<'A', 'a'>(b);
    };
    const auto [a, b] = std::mismatch(left.begin(), left.end(), right.begin(), right.end(), same);
    if (a == left.end() || b == right.end())
        return a == left.end() && b == right.end(); // folding keeps the number of characters
    if (isAscii(*a) && isAscii(*b))
        return false;
    return foldCase({a, left.end()}) == foldCase({b, right.end()});
}

std::string collationVersion() {
    constexpr int rule = 2; // of what this file adds to the collator: 1 had nothing behind it
    return fmt::format("{}/{}/{}", rule, order().version(), U_UNICODE_VERSION);
}

} // namespace tol::runtime
