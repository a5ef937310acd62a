// SPDX-License-Identifier: MIT
#include "shell/vdwindows/frmvdMsgBox.h"

#include "forms/controls/Controls.h"
#include "shell/vdfunctions/vdTexts.h"

#include <QLabel>
#include <QPushButton>

namespace tol::shell {
namespace {

constexpr int buttonTop = 1575, buttonWidth = 1500, buttonHeight = 375;
constexpr int middle = 1065; // left edge of a button that stands alone

} // namespace

frmvdMsgBox::frmvdMsgBox()
    : Form("frmvdMsgBox"),
      m_lblMessageText(forms::addLabel(*this, "lblMessageText", {}, {240, 180, 3150, 1215})),
      m_cmdButton1(forms::addButton(*this, "cmdButton1", "&OK", {240, buttonTop, buttonWidth, buttonHeight},
                                    [this] { finish(1); })),
      m_cmdButton2(forms::addButton(*this, "cmdButton2", {}, {1890, buttonTop, buttonWidth, buttonHeight},
                                    [this] { finish(2); })) {
    setWindowTitle("Message Box");
    setScaleSize(2 * middle + buttonWidth, 2130);
    m_lblMessageText.setWordWrap(true);
}

void frmvdMsgBox::setMessage(const std::string& text) {
    m_lblMessageText.setText(QString::fromStdString(text));
}

void frmvdMsgBox::onLoad() {
    if (vdNotBlank(sButton1))
        m_cmdButton1.setText(QString::fromStdString(sButton1));
    m_cmdButton2.setText(QString::fromStdString(sButton2));
    if (vdIsBlank(sButton2)) {
        m_cmdButton2.hide();
        forms::place(m_cmdButton1, {middle, buttonTop, buttonWidth, buttonHeight});
    }
}

void frmvdMsgBox::finish(int result) {
    iResult = result;
    unload();
}

} // namespace tol::shell
