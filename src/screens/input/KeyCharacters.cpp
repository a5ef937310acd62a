// SPDX-License-Identifier: MIT
#include "screens/input/KeyCharacters.h"

#include "runtime/Text.h"

#include <algorithm>
#include <iterator>

namespace tol::screens {
namespace {

struct KeyRow {
    int key;
    char plain, shifted;
};

// A row for each key on which Shift makes another character.
constexpr KeyRow typewriterKeys[] = {
    {48, '0', ')'},  {49, '1', '!'},  {50, '2', '@'},   {51, '3', '#'},  {52, '4', '$'},
    {53, '5', '%'},  {54, '6', '^'},  {55, '7', '&'},   {56, '8', '*'},  {57, '9', '('},
    {188, ',', '<'}, {190, '.', '>'}, {191, '/', '?'},  {187, '=', '+'}, {189, '-', '_'},
    {219, '[', '{'}, {221, ']', '}'}, {220, '\\', '|'}, {186, ';', ':'}, {222, '\'', '"'},
};

constexpr int noShift = 0, shiftKey = 1;
constexpr int firstPrinting = 32, pad0 = 96, pad9 = 105, padMultiply = 106, lastPrinting = 111;

/// Keys 106 to 111 of the numeric pad; 108 is on no keyboard.
std::string padSign(int key) {
    static constexpr char signs[] = "*+\0-./";
    const char sign = signs[key - padMultiply];
    return sign == '\0' ? std::string() : std::string(1, sign);
}

std::string characterOfCode(int key, int shift) {
    if (key < firstPrinting || key > lastPrinting)
        return {};
    if (key >= padMultiply)
        return padSign(key);
    if (key >= pad0)
        return std::string(1, static_cast<char>('0' + key - pad0));
    static_assert(pad9 + 1 == padMultiply);
    const std::string character(1, static_cast<char>(key));
    return shift == shiftKey ? runtime::upperCase(character) : runtime::lowerCase(character);
}

} // namespace

std::string vdKeyCodeChar(int key, int shift) {
    const auto* row = std::ranges::find(typewriterKeys, key, &KeyRow::key);
    if (row == std::end(typewriterKeys) || (shift != noShift && shift != shiftKey))
        return characterOfCode(key, shift);
    return std::string(1, shift == shiftKey ? row->shifted : row->plain);
}

} // namespace tol::screens
