// SPDX-License-Identifier: MIT
#include "data/engine/StoredValue.h"

namespace tol::data {
namespace {

using Kind = StoredValue::Kind;

int rank(Kind kind) {
    return kind == Kind::Null ? 0 : kind == Kind::Text ? 2 : kind == Kind::Blob ? 3 : 1;
}

/// Holds every 64-bit integer and every double.
long double number(const StoredValue& value) {
    return value.kind == Kind::Integer ? static_cast<long double>(value.integer)
                                       : static_cast<long double>(value.real);
}

} // namespace

std::partial_ordering compareStored(const StoredValue& left, const StoredValue& right) {
    if (left.kind == Kind::Integer && right.kind == Kind::Integer)
        return left.integer <=> right.integer;
    if (rank(left.kind) != rank(right.kind))
        return rank(left.kind) <=> rank(right.kind);
    switch (left.kind) {
    case Kind::Null:
        return std::partial_ordering::equivalent;
    case Kind::Text:
        return left.text == right.text ? std::partial_ordering::equivalent : std::partial_ordering::unordered;
    case Kind::Blob:
        return left.text <=> right.text;
    case Kind::Integer:
    case Kind::Real:
        break;
    }
    return number(left) <=> number(right);
}

} // namespace tol::data
