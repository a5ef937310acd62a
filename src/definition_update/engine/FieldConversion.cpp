// SPDX-License-Identifier: MIT
#include "definition_update/engine/FieldConversion.h"

#include "definition_update/engine/ActivityLog.h"
#include "definition_update/engine/ConversionMatrix.h"
#include "definition_update/engine/Procedure.h"
#include "runtime/Conversions.h"
#include "runtime/Host.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdfunctions/vdTexts.h"

#include <cstdint>
#include <optional>

namespace tol::update {

using runtime::host;
using runtime::Value;
using shell::vdNullCheck;

namespace {

const std::string temporaryField = "TEMPFIELD";

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
void FieldConversion::ConvertFieldType(int liveType) {
    runStep(m_db, "ConvertFieldType", [&] {
        showLabels();
        deleteAllIndexes(m_table);
        appendTemporaryField(true);
        convertRows(liveType);
        if (!m_db.keepsOldField())
            replaceOldField(ActivityKind::TypeChanged);
        hideLabels();
    });
}

// Unlike a change of type, a change of size keeps the old field whenever the run was stopped.
void FieldConversion::ChangeFieldSize(int liveSize) {
    runStep(m_db, "ChangeFieldSize", [&] {
        showLabels();
        deleteAllIndexes(m_table);
        appendTemporaryField(false);
        resizeRows(liveSize);
        if (m_run.ContinueRun)
            replaceOldField(ActivityKind::SizeChanged);
        hideLabels();
    });
}

// Once the operator wants no more warnings no row is stored for the rest of the field, though conversions
// still run and may fail. A row left without Update is dropped by the move to the next one.
void FieldConversion::convertRows(int liveType) {
    data::Recordset rows = m_db.target.OpenRecordset(m_db.TNAME);
    const data::Field from = rows.Fields(m_wanted.FNAME);
    data::Field to = rows.Fields(temporaryField);
    const Conversion convert = conversionFor(liveType, m_wanted.FTYPE);
    Value converted;
    eachRow(rows, [&] {
        m_run.UnableToConvert = false;
        const std::optional<Value> value = readableValue(from);
        m_run.UnableToConvert = !value || !convert(*value, m_wanted.FSIZE, converted);
        if (!m_run.UnableToConvert)
            to.Value(converted);
        if (!m_warns)
            return;
        if (m_run.UnableToConvert)
            askAboutUnconvertible();
        else
            rows.Update();
    });
    rows.Close();
}

void FieldConversion::askAboutUnconvertible() {
    const auto yes = [this](QuestionKind kind) {
        return m_run.view.ask({kind, m_run.siteName, m_run.DBNAME, m_db.TNAME, m_wanted.FNAME});
    };
    if (!yes(QuestionKind::LoseValue)) {
        m_run.ContinueRun = false;
        m_db.keepsFields = true;
        m_run.UnableToConvert = false;
    } else if (!yes(QuestionKind::WarnAgain)) {
        m_warns = false;
    }
}

void FieldConversion::resizeRows(int liveSize) {
    data::Recordset rows = m_db.target.OpenRecordset(m_db.TNAME);
    const data::Field from = rows.Fields(m_wanted.FNAME);
    data::Field to = rows.Fields(temporaryField);
    m_run.UnableToConvert = liveSize > m_wanted.FSIZE;
    eachRow(rows, [&] {
        const std::optional<Value> value = readableValue(from);
        if (!value) {
            if (m_warns)
                askAboutUnconvertible();
            return;
        }
        if (m_run.UnableToConvert)
            to.Value(runtime::left(runtime::toText(*value), m_wanted.FSIZE));
        else
            to.Value(*value);
        rows.Update();
    });
    rows.Close();
}

// A stop that has come meanwhile, and is no Cancel, keeps the old field.
void FieldConversion::replaceOldField(ActivityKind kind) {
    fillBlanks();
    if (m_db.keepsOldField())
        return;
    const auto exchange = [this] {
        m_table.Fields().Delete(m_wanted.FNAME);
        m_table.Fields()(temporaryField).Name(m_wanted.FNAME);
    };
    changeAndLog(
        m_db, exchange,
        {.kind = kind, .table = m_db.TNAME, .field = m_wanted.FNAME, .dataMayBeLost = m_run.UnableToConvert});
}

// Values that were not stored become the wanted type's blank. The rows that a Cancel kept from being reached
// end without a value.
void FieldConversion::fillBlanks() {
    data::Recordset rows = m_db.target.OpenRecordset(m_db.TNAME);
    data::Field value = rows.Fields(temporaryField);
    eachRow(rows, [&] {
        if (!value.Value().isNull())
            return;
        value.Value(vdNullCheck(value));
        rows.Update();
    });
    if (!rows.AtEOF() && !m_db.keepsOldField())
        clearBehind(rows, value);
    rows.Close();
}

void FieldConversion::eachRow(data::Recordset& rows, const std::function<void()>& change) {
    const std::int64_t count = rows.RecordCount();
    m_run.view.showLabel(RunLabel::NP6, std::to_string(count));
    if (count == 0)
        return;
    rows.MoveFirst();
    for (std::int32_t counter = 1; !rows.AtEOF(); ++counter) {
        m_run.view.showLabel(RunLabel::NP4, shell::vdLongText(counter, 10));
        rows.Edit();
        change();
        host().doEvents();
        if (!m_run.ContinueRun)
            break;
        rows.MoveNext();
    }
}

void FieldConversion::appendTemporaryField(bool memoAllowsZeroLength) {
    m_table.Fields().Append(m_table.CreateField(temporaryField, m_wanted.FTYPE, m_wanted.FSIZE));
    if (m_wanted.FTYPE == data::dbText || (memoAllowsZeroLength && m_wanted.FTYPE == data::dbMemo))
        m_table.Fields()(temporaryField).AllowZeroLength(true);
}

void FieldConversion::showLabels() {
    m_run.view.showRecordLabels(true);
    m_run.view.showLabel(RunLabel::NP2, m_db.TNAME);
}

void FieldConversion::hideLabels() {
    m_run.view.showLabel(RunLabel::NP2, " ");
    m_run.view.showRecordLabels(false);
}

} // namespace tol::update
