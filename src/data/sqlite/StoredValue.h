// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/Physical.h"
#include "data/sqlite/Statement.h"
#include "runtime/Value.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tol::data::sqlite {

/// A value as it lies in the file: one of SQLite's five storage classes. Text and bytes are a view of
/// somebody else's memory.
struct StoredValue {
    enum class Kind : std::uint8_t { Null, Integer, Real, Text, Blob };

    Kind kind = Kind::Null;
    std::int64_t integer = 0;
    double real = 0;
    std::string_view text; ///< of Text, and the bytes of Blob

    [[nodiscard]] bool isNull() const { return kind == Kind::Null; }
    /// Same class and same content, to the byte.
    bool operator==(const StoredValue& other) const;

    static StoredValue ofInteger(std::int64_t value) { return {Kind::Integer, value, 0, {}}; }
    static StoredValue ofReal(double value) { return {Kind::Real, 0, value, {}}; }
    static StoredValue ofText(std::string_view value) { return {Kind::Text, 0, 0, value}; }
    static StoredValue ofBlob(std::string_view value) { return {Kind::Blob, 0, 0, value}; }
};

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
    [[nodiscard]] bool isNull() const { return m_value.isNull(); }
    bool operator==(const KeptValue& other) const { return value() == other.value(); }

  private:
    StoredValue m_value;
    std::string m_text;
};

/// How a field's value lies in a column. `buffer` gives room for texts that have to be made.
StoredValue toStored(const runtime::Value& value, Storage storage, std::string& buffer);

/// The field's value that lies there, in the field's own type or Null. Columns of other makers may hold
/// anything; what has no meaning in the field's type raises 3421.
runtime::Value fromStored(const StoredValue& stored, FieldType type, Storage storage);

/// Binds without a copy: the value must stay in place until the statement has run.
void bindStored(Statement& statement, int parameter, const StoredValue& value);

} // namespace tol::data::sqlite
