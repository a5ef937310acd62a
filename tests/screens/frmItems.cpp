// SPDX-License-Identifier: MIT
#include "frmItems.h"

#include "forms/controls/TextBox.h"
#include "runtime/Conversions.h"
#include "runtime/Text.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdfunctions/vdRecords.h"
#include "shell/vdfunctions/vdTexts.h"

#include <QLabel>

namespace tol::test {

using screens::EditedField;
using screens::EditMode;

namespace {

std::string allowed(data::Recordset& item) {
    return runtime::toBoolean(item.Fields("ALLOWED").Value()) ? "Yes" : "No";
}

std::string CheckAllowed(EditedField& edited) {
    if (shell::vdIsBlank(edited.text))
        return "Blank Option.";
    edited.setText(runtime::upperCase(edited.text));
    return edited.text == "Y" || edited.text == "N" ? "" : "Option Must Be Y/N.";
}

} // namespace

frmItems::frmItems(std::int32_t box) : ListWindow(description()), mBox(box) {}

screens::ListWindowDescription frmItems::description() {
    return {
        .name = "frmItems",
        .caption = "Items",
        .table = "ITEMS",
        .list = {.index = "ITEMS",
                 .columns = {{.label = "lblCODE",
                              .headingLabel = "lblHCODE",
                              .heading = "Code",
                              .width = 1500,
                              .text = [this](auto& item) { return ofGoods(item, "CODE"); }},
                             {.label = "lblDESC",
                              .headingLabel = "lblHDESC",
                              .heading = "Description",
                              .width = 3000,
                              .text = [this](auto& item) { return ofGoods(item, "DESC"); }},
                             {.label = "lblALLOWED",
                              .headingLabel = "lblHALLOWED",
                              .heading = "Allowed?",
                              .width = 1200,
                              .text = allowed}},
                 .rows = 3,
                 .subset = {.keys = [this](auto& items) -> shell::KeyPairs {
                                return {{mBox, items.Fields("BOX")}};
                            },
                            .parentIsBlank = [this] { return mBox == 0; }}},
        .edit = edit(),
        .commands = {{"cmdDetail", "&Browse Detail", "Shows more", [this] { ++details; }}},
        .headerHeight = 450,
    };
}

screens::EditDescription frmItems::edit() {
    return {.fields = {{.box = "txtCODE",
                        .column = 0,
                        .maxLength = 8,
                        .title = "Code",
                        .check = [this](EditedField& edited) { return CheckCode(edited); },
                        .read = [this](data::Recordset& item) { return codeForEdit(item); }},
                       {.box = "txtALLOWED",
                        .column = 2,
                        .maxLength = 1,
                        .title = "Allowed?",
                        .check = CheckAllowed,
                        .read = [](data::Recordset& item) { return allowed(item).substr(0, 1); }}},
            .sideButtons = {{"cmdSearch", "=", "Click to Display Search Window", 0, [this] { search(); }}},
            .sideLabels = {{"lblTDESC", 1}},
            .mayAdd = [this] { return mBox != 0; },
            .begin =
                [this](EditMode mode) {
                    if (mode == EditMode::Add)
                        mGoodsTag = 0;
                    tellGoods();
                },
            .write =
                [this](data::Recordset& item, EditMode) {
                    item.Fields("BOX").Value(mBox);
                    item.Fields("GOODS").Value(mGoodsTag);
                    item.Fields("ALLOWED").Value(editCycle().box(1).Text() == "Y");
                },
            .checkAtUpdateFocus = true,
            .deleteQuestion =
                [this](data::Recordset& item) { return "OK to Delete " + ofGoods(item, "CODE") + "?"; },
            .deleteDependents = [this](data::Recordset& item) { deleteSlips(item); }};
}

void frmItems::openMore(data::Database& database) {
    m_goods = database.OpenRecordset("GOODS");
    m_slips = database.OpenRecordset("SLIPS");
}

std::string frmItems::ofGoods(data::Recordset& item, const std::string& field) {
    m_goods.Index("TAG");
    m_goods.Seek("=", {item.Fields("GOODS").Value()});
    return m_goods.NoMatch() ? "????????" : shell::vdNullCheckText(m_goods.Fields(field));
}

std::string frmItems::codeForEdit(data::Recordset& item) {
    mGoodsTag = runtime::toLong(item.Fields("GOODS").Value());
    return ofGoods(item, "CODE");
}

std::string frmItems::CheckCode(EditedField& edited) {
    if (shell::vdIsBlank(edited.text))
        return "Blank Code Detected.";
    edited.setText(runtime::upperCase(edited.text));
    m_goods.Index("CODE");
    m_goods.Seek("=", {edited.text});
    if (m_goods.NoMatch())
        return "Cannot Find Code: " + edited.text;
    mGoodsTag = runtime::toLong(m_goods.Fields("TAG").Value());
    tellGoods();
    return {};
}

void frmItems::search() {
    editCycle().box(0).Text("NAIL");
    editCycle().box(0).setFocus();
}

void frmItems::tellGoods() {
    m_goods.Index("TAG");
    m_goods.Seek("=", {mGoodsTag});
    const std::string text = m_goods.NoMatch() ? " " : shell::vdNullCheckText(m_goods.Fields("DESC"));
    findChild<QLabel*>("lblTDESC")->setText(QString::fromStdString(text));
}

void frmItems::deleteSlips(data::Recordset& item) {
    const runtime::Value tag = item.Fields("GOODS").Value();
    for (m_slips.Index("GOODS"), m_slips.Seek("=", {tag}); !m_slips.NoMatch(); m_slips.Seek("=", {tag})) {
        m_slips.Delete();
        if (atYield)
            atYield();
    }
}

} // namespace tol::test
