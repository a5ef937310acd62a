// SPDX-License-Identifier: MIT
#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

namespace tol::data {

/// A value as an engine keeps it, of one of five kinds; what it means to its field the engine knows. Text
/// and bytes are a view of somebody else's memory.
struct StoredValue {
    enum class Kind : std::uint8_t { Null, Integer, Real, Text, Blob };

    Kind kind = Kind::Null;
    std::int64_t integer = 0;
    double real = 0;
    std::string_view text; ///< of Text, and the bytes of Blob

    [[nodiscard]] bool isNull() const { return kind == Kind::Null; }
    /// Same kind and same content, to the byte.
    bool operator==(const StoredValue& other) const = default;

    static StoredValue ofInteger(std::int64_t value) { return {Kind::Integer, value, 0, {}}; }
    static StoredValue ofReal(double value) { return {Kind::Real, 0, value, {}}; }
    static StoredValue ofText(std::string_view value) { return {Kind::Text, 0, 0, value}; }
    static StoredValue ofBlob(std::string_view value) { return {Kind::Blob, 0, 0, value}; }
};

/// The order of keys: Null, then numbers, texts and bytes. Two texts that are not the same compare as
/// unordered, since that depends on a collation.
std::partial_ordering compareStored(const StoredValue& left, const StoredValue& right);

/// A stored value that owns its text.
class KeptValue {
  public:
    KeptValue() = default;
    explicit KeptValue(const StoredValue& value) { *this = value; }
    KeptValue& operator=(const StoredValue& value) {
        m_value = value;
        m_text = value.text;
        m_value.text = {};
        return *this;
    }
    [[nodiscard]] StoredValue value() const {
        StoredValue value = m_value;
        value.text = m_text;
        return value;
    }
    bool operator==(const KeptValue& other) const { return value() == other.value(); }

  private:
    StoredValue m_value;
    std::string m_text;
};

} // namespace tol::data
