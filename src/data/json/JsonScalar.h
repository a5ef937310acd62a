// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>

namespace tol::data::json {

/// A number with a fraction or an exponent, and how it was spelled: a Single must be rounded once, from
/// the decimal digits, and not a second time from a Double.
struct JsonReal {
    double value;
    std::string spelled;
};

/// A value of a JSON text that is no object and no array. Whole numbers above the range of the signed
/// type come unsigned.
using JsonScalar = std::variant<std::nullptr_t, bool, std::int64_t, std::uint64_t, JsonReal, std::string>;

} // namespace tol::data::json
