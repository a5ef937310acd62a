// SPDX-License-Identifier: MIT
#include "network/frmNETSET.h"

#include "forms/controls/Controls.h"
#include "network/model/NetworkLocation.h"
#include "network/model/NetworkUser.h"
#include "runtime/Host.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "screens/RowLabel.h"
#include "shell/vdfunctions/vdLocation.h"
#include "shell/vdwindows/vdFormLoadError.h"

#include <QLabel>
#include <QPushButton>

namespace tol::network {
namespace {

constexpr const char* missingText = "The Database NETPATH.mdb is Missing.";
constexpr const char* notListed = "<none>";

constexpr int margin = 225, rowHeight = 405, labelHeight = 330;
constexpr int headWidth = 2775, valueWidth = 6000;
constexpr int valueLeft = margin + headWidth;
constexpr int locationRow = 2;
constexpr int buttonTop = margin + 3 * rowHeight + margin, buttonHeight = 375;

constexpr int topOf(int row) {
    return margin + row * rowHeight;
}

void setCaption(QLabel& label, const std::string& text) {
    label.setText(QString::fromStdString(text));
}

} // namespace

frmNETSET::frmNETSET(std::string netPath, std::string moduleCode)
    : Form("frmNETSET"),
      NetPath(std::move(netPath)),
      ModuleCode(std::move(moduleCode)),
      lblUSERNAME(&addRow("USERNAME", "User Name:", 0)),
      lblUSERTAG(&addRow("USERTAG", "User Number:", 1)),
      lblNETPATH(new screens::RowLabel(*this, "lblNETPATH", screens::TextCut::Middle)),
      m_location(*this,
                 forms::addLabel(*this, "lblHNETPATH", "Network Database Location:",
                                 {margin, topOf(locationRow), headWidth, labelHeight}),
                 maxLocation, {valueLeft, topOf(locationRow), valueWidth, labelHeight}) {
    forms::place(*lblNETPATH, {valueLeft - screens::RowLabel::margin, topOf(locationRow),
                               valueWidth + 2 * screens::RowLabel::margin, labelHeight});
    lblNETPATH->setTransparent();
    makeButtons();
    setScaleSize(valueLeft + valueWidth + margin, buttonTop + buttonHeight + margin);
}

QLabel& frmNETSET::addRow(const char* name, const char* caption, int row) {
    forms::addLabel(*this, QString("lblH") + name, caption, {margin, topOf(row), headWidth, labelHeight});
    return forms::addLabel(*this, QString("lbl") + name, {},
                           {valueLeft, topOf(row), valueWidth, labelHeight});
}

void frmNETSET::makeButtons() {
    cmdNETPATH = &forms::addButton(*this, "cmdNETPATH", {}, {margin, buttonTop, 3000, buttonHeight},
                                   [this] { cmdNETPATH_Click(); });
    cmdAdd = &forms::addButton(*this, "cmdAdd", {}, {margin + 3150, buttonTop, 2700, buttonHeight},
                               [this] { cmdAdd_Click(); });
    cmdExit = &forms::addButton(*this, "cmdExit", "E&xit",
                                {valueLeft + valueWidth - 1275, buttonTop, 1275, buttonHeight},
                                [this] { unload(); });
    setCancelButton(cmdExit);
}

// Load.

void frmNETSET::onLoad() {
    setEditing(false);
    try {
        readSettings();
    } catch (const runtime::RuntimeError& error) {
        shell::vdFormLoadError(*this, *cmdExit, "frmNETSET", std::to_string(error.number()),
                               error.description());
    }
}

void frmNETSET::readSettings() {
    const SuiteModule& module = suiteModule(ModuleCode);
    setWindowTitle("Network Settings - " + QString::fromUtf8(module.name.data(), std::ssize(module.name)));
    UserName = shell::vdUserName();
    setCaption(*lblUSERNAME, UserName);
    const auto location = networkLocation(module);
    NetMissing = !location;
    DBPathText = location.value_or(missingText);
    ShowUserNumber();
    showLocation();
}

void frmNETSET::ShowUserNumber() {
    const auto database = networkDatabase(NetPath);
    if (!database)
        return;
    const auto number = userNumber(*database, UserName);
    setCaption(*lblUSERTAG, number ? std::to_string(*number) : notListed);
}

void frmNETSET::showLocation() {
    setCaption(*lblNETPATH, DBPathText);
    m_location.show(DBPathText);
}

// The location.

void frmNETSET::setEditing(bool editing) {
    PathEditing = editing;
    cmdNETPATH->setText(editing ? "&Update Location Setting" : "&Modify Network DB Location");
    cmdAdd->setText(editing ? "&Cancel" : "&Add This User to List");
    lblNETPATH->setVisible(!editing);
    m_location.setVisible(editing);
    cmdExit->setEnabled(!editing);
}

void frmNETSET::cmdNETPATH_Click() {
    if (NetMissing) {
        runtime::host().msgBox(missingText, {runtime::MsgIcon::Critical, runtime::MsgButtons::Ok},
                               "Cannot Continue");
    } else if (PathEditing) {
        saveLocation();
    } else {
        showLocation(); // not what was typed and given up before
        setEditing(true);
        m_location.takeFocus();
    }
}

void frmNETSET::saveLocation() {
    DBPathText = runtime::trim(m_location.location());
    storeLocation(DBPathText);
    setCaption(*lblNETPATH, DBPathText);
    setEditing(false);
}

// The user.

void frmNETSET::cmdAdd_Click() {
    if (PathEditing)
        return setEditing(false);
    addThisUser();
    cmdExit->setFocus();
}

void frmNETSET::addThisUser() {
    const auto database = networkDatabase(NetPath);
    if (!database)
        return;
    const AddedUser user = addUser(*database, UserName);
    UserName = user.name;
    if (user.outcome == UserAddition::Added)
        setCaption(*lblUSERTAG, std::to_string(user.number));
    tell(user);
}

} // namespace tol::network
