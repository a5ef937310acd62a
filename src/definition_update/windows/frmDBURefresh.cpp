// SPDX-License-Identifier: MIT
#include "definition_update/windows/frmDBURefresh.h"

#include "definition_update/engine/DefinitionRefresh.h"
#include "forms/controls/Controls.h"

#include <QLabel>
#include <QPushButton>

namespace tol::update {
namespace {

constexpr int windowWidth = 7650;
constexpr int windowHeight = 2910;
constexpr int margin = 210;
constexpr int firstLine = 180;
constexpr int lineHeight = 390;
constexpr int headingWidth = 2790;
constexpr int buttonTop = 2310;
constexpr int buttonWidth = 1500;
constexpr int buttonHeight = 420;

struct Line {
    RefreshLabel label;
    const char* headingName;
    const char* heading;
    const char* name;
};

constexpr Line lines[] = {
    {RefreshLabel::DBNAME, "lblHDBNAME", "Now Processing Database:", "lblDBNAME"},
    {RefreshLabel::DBDESC, "lblHDBDESC", "Database Description:", "lblDBDESC"},
    {RefreshLabel::TNAME, "lblHTNAME", "Table:", "lblTNAME"},
    {RefreshLabel::FNAME, "lblHFNAME", "Field:", "lblFNAME"},
    {RefreshLabel::INAME, "lblHINAME", "Index:", "lblINAME"},
};

} // namespace

frmDBURefresh::frmDBURefresh()
    : Form("frmDBURefresh"),
      m_cmdCancel(forms::addButton(*this, "cmdCancel", "&Begin",
                                   {margin, buttonTop, buttonWidth, buttonHeight},
                                   [this] { cmdCancel_Click(); })),
      m_cmdExit(forms::addButton(*this, "cmdExit", "E&xit",
                                 {windowWidth - margin - buttonWidth, buttonTop, buttonWidth, buttonHeight},
                                 [this] { unload(); })) {
    setWindowTitle("Refresh Database Definitions");
    setScaleSize(windowWidth, windowHeight);
    makeLabels();
}

void frmDBURefresh::makeLabels() {
    const int left = margin + headingWidth;
    int top = firstLine;
    for (const Line& line : lines) {
        forms::addLabel(*this, line.headingName, line.heading, {margin, top, headingWidth, lineHeight});
        m_labels.at(static_cast<std::size_t>(line.label)) =
            &forms::addLabel(*this, line.name, " ", {left, top, windowWidth - margin - left, lineHeight});
        top += lineHeight;
    }
}

// The button starts the refresh and, while it runs, ends it; after either press it has done its work. The
// press that starts returns when the refresh has ended, the other one comes in at a yield.
void frmDBURefresh::cmdCancel_Click() {
    if (m_refresh == nullptr) {
        m_cmdExit.setEnabled(false);
        m_cmdCancel.setText("&Cancel");
        RefreshDefinitions();
    } else {
        m_refresh->Cancel();
    }
    m_cmdCancel.setEnabled(false);
    m_cmdExit.setEnabled(true);
    m_cmdExit.setFocus();
}

void frmDBURefresh::RefreshDefinitions() {
    const Busy busy(*this);
    DefinitionRefresh refresh(*this, NetLocation);
    m_refresh = &refresh;
    const RefreshOutcome outcome = refresh.RefreshDefinitions();
    m_refresh = nullptr;
    showClosing(*this, outcome); // an error may have ended it before it came to that
}

// The close button is another Exit.
bool frmDBURefresh::mayClose() const {
    return m_cmdExit.isEnabled();
}

void frmDBURefresh::showLabel(RefreshLabel label, const std::string& text) {
    m_labels.at(static_cast<std::size_t>(label))->setText(QString::fromStdString(text));
}

void frmDBURefresh::enableCancel() {
    m_cmdCancel.setEnabled(true);
}

} // namespace tol::update
