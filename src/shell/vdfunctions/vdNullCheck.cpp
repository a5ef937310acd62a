// SPDX-License-Identifier: MIT
#include "shell/vdfunctions/vdNullCheck.h"

#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "shell/vdfunctions/vdBoxes.h"

#include <fmt/format.h>

namespace tol::shell {
namespace {

using runtime::RuntimeError;
using runtime::Value;

/// What stands for Null in a field of that type.
Value blankValue(data::FieldType type, int size) {
    switch (type) {
    case data::dbBoolean:
        return false;
    case data::dbByte:
    case data::dbInteger:
        return std::int16_t{0};
    case data::dbLong:
        return std::int32_t{0};
    case data::dbCurrency:
        return runtime::Currency{};
    case data::dbSingle:
        return 0.0F;
    case data::dbDouble:
        return 0.0;
    case data::dbDate:
        return runtime::makeDate({.year = 1900, .month = 1, .day = 1});
    case data::dbText:
        return runtime::space(size);
    case data::dbLongBinary:
    case data::dbMemo:
    case data::dbGUID:
        return " ";
    }
    return {};
}

/// What can still be told of a field whose value could not be read: nothing once its recordset is closed.
struct FieldFacts {
    std::string name;
    data::FieldType type = {};
    int size = 0;

    explicit FieldFacts(const data::Field& field) {
        try {
            name = field.Name();
            type = field.Type();
            size = field.Size();
        } catch (const RuntimeError&) { // the error that is reported already is the one that matters
            type = {};
        }
    }
};

Value valueAfter(const RuntimeError& error, const data::Field& field) {
    const FieldFacts facts(field);
    showBox(fmt::format("Error Encountered In Function: vdNullCheck() Field: {}\nError Number: {}\nError: {}",
                        facts.name, error.number(), error.description()),
            runtime::MsgIcon::Critical, "vd NullCheck Error");
    return facts.type == data::dbDate ? Value("  /  /  ") : blankValue(facts.type, facts.size);
}

} // namespace

Value vdNullCheck(const data::Field& field) {
    try {
        Value value = field.Value();
        return value.isNull() ? blankValue(field.Type(), field.Size()) : value;
    } catch (const RuntimeError& error) {
        return valueAfter(error, field);
    }
}

std::string vdNullCheckText(const data::Field& field) {
    return runtime::toText(vdNullCheck(field));
}

} // namespace tol::shell
