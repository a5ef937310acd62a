// SPDX-License-Identifier: MIT
#include "platform/Registry.h"

#include "runtime/Text.h"

#include <charconv>
#include <cstdlib>
#include <fstream>

namespace tol::platform {
namespace {

constexpr std::uint32_t anyBytes = 3; // the type of plain "hex:"

bool takePrefix(std::string_view& rest, std::string_view prefix) {
    if (!rest.starts_with(prefix))
        return false;
    rest.remove_prefix(prefix.size());
    return true;
}

template <typename Number>
std::optional<Number> takeHex(std::string_view& rest) {
    Number number{};
    const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), number, 16);
    if (error != std::errc())
        return std::nullopt;
    rest.remove_prefix(static_cast<std::size_t>(end - rest.data()));
    return number;
}

/// A text in quotation marks, in which a backslash stands before a backslash or quotation mark.
std::optional<std::string> takeQuoted(std::string_view& rest) {
    if (!takePrefix(rest, "\""))
        return std::nullopt;
    std::string text;
    while (!rest.empty() && rest.front() != '"') {
        if (rest.front() == '\\' && rest.size() > 1)
            rest.remove_prefix(1);
        text += rest.front();
        rest.remove_prefix(1);
    }
    if (!takePrefix(rest, "\""))
        return std::nullopt;
    return text;
}

std::optional<RegistryValue> readNumber(std::string_view rest) {
    const auto number = takeHex<std::uint32_t>(rest);
    if (!number || !rest.empty())
        return std::nullopt;
    std::string bytes;
    for (int shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>(*number >> shift & 0xff);
    return RegistryValue{RegistryValue::number, bytes};
}

/// "61,00", behind the type in brackets when it is not the usual one.
std::optional<RegistryValue> readBytes(std::string_view rest) {
    std::optional<std::uint32_t> type = anyBytes;
    if (takePrefix(rest, "(")) {
        type = takeHex<std::uint32_t>(rest);
        if (!takePrefix(rest, ")"))
            return std::nullopt;
    }
    if (!type || !takePrefix(rest, ":"))
        return std::nullopt;
    RegistryValue value{*type, {}};
    while (!rest.empty()) {
        const auto byte = takeHex<std::uint8_t>(rest);
        if (!byte || !(rest.empty() || takePrefix(rest, ",")))
            return std::nullopt;
        value.bytes += static_cast<char>(*byte);
    }
    return value;
}

std::optional<RegistryValue> readValue(std::string_view rest) {
    if (takePrefix(rest, "dword:"))
        return readNumber(rest);
    if (takePrefix(rest, "hex"))
        return readBytes(rest);
    const auto text = takeQuoted(rest);
    if (!text || !rest.empty())
        return std::nullopt;
    return RegistryValue{RegistryValue::text, *text + '\0'};
}

/// The value that a line under the key gives to the name.
std::optional<RegistryValue> valueIn(std::string_view line, std::string_view name) {
    const auto named = takeQuoted(line);
    if (!named || !runtime::sameText(*named, name) || !takePrefix(line, "="))
        return std::nullopt;
    return readValue(line);
}

} // namespace

std::optional<RegistryValue> registryValue(std::string_view key, std::string_view name) {
    const char* file = std::getenv("TOL_REGISTRY");
    if (file == nullptr)
        return std::nullopt;
    std::ifstream lines(file);
    bool underKey = false;
    for (std::string line; std::getline(lines, line);) {
        if (line.ends_with('\r'))
            line.pop_back();
        if (line.starts_with('['))
            underKey = runtime::sameText(line, "[" + std::string(key) + "]");
        else if (auto value = underKey ? valueIn(line, name) : std::nullopt)
            return value;
    }
    return std::nullopt;
}

} // namespace tol::platform
