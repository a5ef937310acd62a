// SPDX-License-Identifier: MIT
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace tol::runtime {

/// The value of a variable that was never assigned.
struct Empty {
    auto operator<=>(const Empty&) const = default;
};

/// The value of a field that holds nothing.
struct Null {
    auto operator<=>(const Null&) const = default;
};

/// An exact amount in ten-thousandths, from -922,337,203,685,477.5808 to 922,337,203,685,477.5807.
struct Currency {
    std::int64_t tenThousandths = 0;
    auto operator<=>(const Currency&) const = default;
};

/// A point in time: days since 30 December 1899 with the time of day as the fraction, in the range
/// of the years 100 to 9999. Before day 0 the fraction still counts forward from midnight.
struct Date {
    double serial = 0;
    auto operator<=>(const Date&) const = default;
};

using Bytes = std::vector<std::byte>;

/// A value of any field type. Text is UTF-8; its length counts characters (code points).
/// Order of the alternatives is part of nothing; ask with `is<T>()` and read with `get<T>()`.
class Value {
  public:
    Value() = default;
    Value(Empty) {}
    Value(Null value) : m_value(value) {}
    Value(bool value) : m_value(value) {}
    Value(std::uint8_t value) : m_value(value) {}
    Value(std::int16_t value) : m_value(value) {}
    Value(std::int32_t value) : m_value(value) {}
    Value(Currency value) : m_value(value) {}
    Value(float value) : m_value(value) {}
    Value(double value) : m_value(value) {}
    Value(Date value) : m_value(value) {}
    Value(std::string value) : m_value(std::move(value)) {}
    Value(std::string_view value) : m_value(std::string(value)) {}
    Value(const char* value) : m_value(std::string(value)) {}
    Value(Bytes value) : m_value(std::move(value)) {}

    template <typename T>
    [[nodiscard]] bool is() const {
        return std::holds_alternative<T>(m_value);
    }
    /// The alternative itself; throws std::bad_variant_access when the value holds another one.
    template <typename T>
    [[nodiscard]] const T& get() const {
        return std::get<T>(m_value);
    }
    [[nodiscard]] bool isNull() const { return is<Null>(); }
    [[nodiscard]] bool isEmpty() const { return is<Empty>(); }

    template <typename Visitor>
    decltype(auto) visit(Visitor&& visitor) const {
        return std::visit(std::forward<Visitor>(visitor), m_value);
    }

    /// Same alternative and same content, to the bit; for the database's own rule see valuesEqual().
    bool operator==(const Value&) const = default;

  private:
    std::variant<Empty, Null, bool, std::uint8_t, std::int16_t, std::int32_t, Currency, float, double, Date,
                 std::string, Bytes>
        m_value;
};

} // namespace tol::runtime
