// SPDX-License-Identifier: MIT
#include "shell/frmAboutEdit.h"

#include "forms/controls/Controls.h"
#include "forms/controls/TextBox.h"
#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"
#include "shell/SiteInformation.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdwindows/vdFormLoadError.h"

#include <QLabel>
#include <QPushButton>

#include <iterator>

namespace tol::shell {
namespace {

struct SiteField {
    const char* field;
    const char* box;
    int maxLength;
    const char* caption;
    int left, row, width; ///< of the box, in twips; rows count from 0
};

constexpr SiteField fields[] = {
    {"CONAME", "txtCONAME", 50, "Company Name:", 1950, 0, 5400},
    {"ADDRESS1", "txtADDRESS1", 50, "Address:", 1950, 1, 5400},
    {"ADDRESS2", "txtADDRESS2", 50, "", 1950, 2, 5400},
    {"CITY", "txtCITY", 20, "City:", 1950, 3, 2550},
    {"State", "txtSTATE", 2, "State:", 5700, 3, 600},
    {"ZIP", "txtZIP", 5, "Zip:", 1950, 4, 900},
    {"PLUS4", "txtPLUS4", 4, "Plus 4:", 5700, 4, 900},
    {"LOCATIONNO", "txtLOCATIONNO", 5, "Location Number:", 1950, 5, 900},
};
constexpr const char* numberField = "LOCATIONNO";

constexpr int firstRow = 225, rowHeight = 435, boxHeight = 330;
constexpr int captionLeft = 225, captionWidth = 1725;
constexpr int secondColumn = 4800, secondCaptionWidth = 900;

runtime::Value valueOf(const SiteField& field, const std::string& text) {
    if (std::string_view(field.field) != numberField)
        return text;
    return runtime::toInteger(runtime::leadingNumber(text));
}

} // namespace

frmAboutEdit::frmAboutEdit(std::string folder) : Form("frmAboutEdit"), m_folder(std::move(folder)) {
    setWindowTitle("Site Information Update Screen");
    setScaleSize(7575, 3600);
    makeBoxes();
    forms::addButton(*this, "cmdUpdate", "&Update", {4725, 3075, 1275, 375}, [this] { cmdUpdate_Click(); });
    cmdExit = &forms::addButton(*this, "cmdExit", "E&xit", {6075, 3075, 1275, 375}, [this] { unload(); });
    setCancelButton(cmdExit);
}

void frmAboutEdit::makeBoxes() {
    for (const SiteField& field : fields) {
        const int top = firstRow + field.row * rowHeight;
        const bool first = field.left < secondColumn;
        auto& box =
            forms::TextBox::add(*this, field.box, field.maxLength, {field.left, top, field.width, boxHeight});
        box.setAccessibleName("Address, second line"); // the one without a caption
        box.onKeyPress([](int key) { return forms::vdEnterKey(key, false, false); });
        box.onGotFocus([&box] { forms::vdSelectAll(box); });
        m_boxes.push_back(&box);
        if (*field.caption != '\0')
            forms::setLabelOf(forms::addLabel(*this, QString("lblH") + field.field, field.caption,
                                              {first ? captionLeft : secondColumn, top,
                                               first ? captionWidth : secondCaptionWidth, boxHeight}),
                              box);
    }
}

void frmAboutEdit::onLoad() {
    m_loadFinished = false;
    try {
        m_site = openSiteInformation(m_folder, sDBName);
        moveToSiteInformation(m_site.rows);
        fill();
        m_loadFinished = true;
    } catch (const runtime::RuntimeError& error) {
        vdFormLoadError(*this, *cmdExit, "frmAboutEdit", std::to_string(error.number()), error.description());
    }
}

void frmAboutEdit::fill() {
    for (std::size_t i = 0; i < std::size(fields); ++i)
        m_boxes[i]->Text(vdNullCheckText(m_site.rows.Fields(fields[i].field)));
}

void frmAboutEdit::onUnload() {
    if (m_loadFinished)
        m_site.Close();
    m_loadFinished = false;
    m_site = {};
}

void frmAboutEdit::cmdUpdate_Click() {
    data::Recordset& site = m_site.rows;
    site.MoveFirst();
    site.Edit();
    for (std::size_t i = 0; i < std::size(fields); ++i)
        site.Fields(fields[i].field).Value(valueOf(fields[i], m_boxes[i]->Text()));
    site.Update();
    unload();
}

} // namespace tol::shell
