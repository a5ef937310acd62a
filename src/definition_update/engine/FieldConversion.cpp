// SPDX-License-Identifier: MIT
#include "definition_update/engine/FieldConversion.h"

#include "definition_update/engine/ActivityLog.h"
#include "definition_update/engine/ConversionMatrix.h"
#include "definition_update/engine/Procedure.h"
#include "runtime/Conversions.h"
#include "runtime/Host.h"
#include "runtime/Text.h"
#include "shell/vdfunctions/vdfunctions.h"

#include <cstdint>
#include <optional>

namespace tol::update {

using runtime::host;
using runtime::MsgResult;
using runtime::MsgStyle;
using runtime::Value;
using shell::vdNullCheck;

namespace {

const std::string temporaryField = "TEMPFIELD";
constexpr MsgStyle yesNo{runtime::MsgIcon::Question, runtime::MsgButtons::YesNo};

/// The value through vdNullCheck; nothing for what another program stored there and what is no value of the
/// field's type.
std::optional<Value> readableValue(const data::Field& field) {
    try {
        Value value = field.Value();
        return value.isNull() ? vdNullCheck(field) : value;
    } catch (const runtime::RuntimeError& error) {
        if (error.number() == runtime::errDataConversion)
            return std::nullopt;
        return vdNullCheck(field);
    }
}

/// Takes the field's value from all rows behind the current one.
void clearBehind(data::Recordset& rows, data::Field& field) {
    for (rows.MoveNext(); !rows.AtEOF(); rows.MoveNext()) {
        rows.Edit();
        field.Value(runtime::Null{});
        rows.Update();
    }
}

} // namespace

void deleteAllIndexes(data::TableDef& table) {
    while (table.Indexes().Count() >= 1)
        table.Indexes().Delete(table.Indexes()(0).Name());
}

// The last steps of a conversion are stored with the first ones of the next, or by ModifyTable at its end.
//
// The run may go on when the operator pressed Cancel, and must not when he answered No: his answer keeps the
// old field, Cancel does not.
void FieldConversion::ConvertFieldType() {
    runStep(m_s, "ConvertFieldType", [this] {
        m_s.WarnUnconvertible = true;
        showLabels();
        deleteAllIndexes(*m_s.tableDef);
        appendTemporaryField(true);
        convertRows();
        if (!m_s.keepsOldField())
            replaceOldField(std::string("Changed Field Type. ") +
                            (m_s.UnableToConvert ? "DATA MAY BE LOST" : " "));
        hideLabels();
    });
}

// Unlike a change of type, a change of size keeps the old field whenever the run was stopped.
void FieldConversion::ChangeFieldSize() {
    runStep(m_s, "ChangeFieldSize", [this] {
        m_s.WarnUnconvertible = true;
        showLabels();
        deleteAllIndexes(*m_s.tableDef);
        appendTemporaryField(false);
        resizeRows();
        if (m_s.ContinueRun)
            replaceOldField(std::string("Changed Field Size. ") +
                            (m_s.UnableToConvert ? "Some Data may be lost." : " "));
        hideLabels();
    });
}

// Once the operator wants no more warnings no row is stored for the rest of the field, though conversions
// still run and may fail. A row left without Update is dropped by the move to the next one.
void FieldConversion::convertRows() {
    data::Recordset rows = m_s.target.OpenRecordset(m_s.TNAME);
    const data::Field from = rows.Fields(m_s.FNAME);
    data::Field to = rows.Fields(temporaryField);
    const Conversion convert = conversionFor(m_s.liveType, m_s.FTYPE);
    Value converted;
    eachRow(rows, [&] {
        m_s.UnableToConvert = false;
        const std::optional<Value> value = readableValue(from);
        m_s.UnableToConvert = !value || !convert(*value, m_s.FSIZE, converted);
        if (!m_s.UnableToConvert)
            to.Value(converted);
        if (!m_s.WarnUnconvertible)
            return;
        if (m_s.UnableToConvert)
            askAboutUnconvertible();
        else
            rows.Update();
    });
    rows.Close();
}

void FieldConversion::askAboutUnconvertible() {
    const std::string text = "Unable to Convert Data in Field: " + std::string(runtime::trim(m_s.FNAME)) +
                             " located in Table: " + std::string(runtime::trim(m_s.TNAME)) +
                             "\nDATA IN THIS FIELD WILL BE LOST.\n\nOK to Continue?";
    if (host().msgBox(text, yesNo, "Data Will Be Lost") == MsgResult::No) {
        m_s.ContinueRun = false;
        m_s.ProcessDatabase = false;
        m_s.UnableToConvert = false;
    } else if (host().msgBox("Warn Again if Unable to Convert Data?", yesNo, "Continue Warning?") ==
               MsgResult::No) {
        m_s.WarnUnconvertible = false;
    }
}

void FieldConversion::resizeRows() {
    data::Recordset rows = m_s.target.OpenRecordset(m_s.TNAME);
    const data::Field from = rows.Fields(m_s.FNAME);
    data::Field to = rows.Fields(temporaryField);
    m_s.UnableToConvert = m_s.liveSize > m_s.FSIZE;
    eachRow(rows, [&] {
        const std::optional<Value> value = readableValue(from);
        if (!value) {
            if (m_s.WarnUnconvertible)
                askAboutUnconvertible();
            return;
        }
        if (m_s.UnableToConvert)
            to.Value(runtime::left(runtime::toText(*value), m_s.FSIZE));
        else
            to.Value(*value);
        rows.Update();
    });
    rows.Close();
}

// A stop that has come meanwhile, and is no Cancel, keeps the old field.
void FieldConversion::replaceOldField(const std::string& action) {
    fillBlanks();
    if (m_s.keepsOldField())
        return;
    const auto exchange = [this] {
        m_s.tableDef->Fields().Delete(m_s.FNAME);
        m_s.tableDef->Fields()(temporaryField).Name(m_s.FNAME);
    };
    changeAndLog(m_s, exchange, m_s.TNAME, m_s.FNAME, action);
}

// Values that were not stored become the wanted type's blank. The rows that a Cancel kept from being reached
// end without a value.
void FieldConversion::fillBlanks() {
    data::Recordset rows = m_s.target.OpenRecordset(m_s.TNAME);
    data::Field value = rows.Fields(temporaryField);
    eachRow(rows, [&] {
        if (!value.Value().isNull())
            return;
        value.Value(vdNullCheck(value));
        rows.Update();
    });
    if (!rows.AtEOF() && !m_s.keepsOldField())
        clearBehind(rows, value);
    rows.Close();
}

void FieldConversion::eachRow(data::Recordset& rows, const std::function<void()>& change) {
    const std::int64_t count = rows.RecordCount();
    m_s.view.showLabel(RunLabel::NP6, std::to_string(count));
    if (count == 0)
        return;
    rows.MoveFirst();
    for (std::int32_t counter = 1; !rows.AtEOF(); ++counter) {
        m_s.view.showLabel(RunLabel::NP4, shell::vdLongText(counter, 10));
        rows.Edit();
        change();
        host().doEvents();
        if (!m_s.ContinueRun)
            break;
        rows.MoveNext();
    }
}

void FieldConversion::appendTemporaryField(bool memoAllowsZeroLength) {
    data::TableDef& table = *m_s.tableDef;
    table.Fields().Append(table.CreateField(temporaryField, m_s.FTYPE, m_s.FSIZE));
    if (m_s.FTYPE == data::dbText || (memoAllowsZeroLength && m_s.FTYPE == data::dbMemo))
        table.Fields()(temporaryField).AllowZeroLength(true);
}

void FieldConversion::showLabels() {
    m_s.view.showRecordLabels(true);
    m_s.view.showLabel(RunLabel::NP2, m_s.TNAME);
}

void FieldConversion::hideLabels() {
    m_s.view.showLabel(RunLabel::NP2, " ");
    m_s.view.showRecordLabels(false);
}

} // namespace tol::update
