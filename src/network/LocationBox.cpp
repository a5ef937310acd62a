// SPDX-License-Identifier: MIT
#include "network/LocationBox.h"

#include "forms/controls/Controls.h"
#include "forms/controls/TextBox.h"
#include "forms/windows/Form.h"
#include "jobsites/frmDBPSearch.h"
#include "runtime/Text.h"
#include "shell/vdfunctions/vdTexts.h"

#include <QLabel>
#include <QPushButton>

namespace tol::network {
namespace {

constexpr int buttonWidth = 345;
constexpr const char* pickerTip = "Click for Location Selection Form";

} // namespace

LocationBox::LocationBox(forms::Form& window, QLabel& label, int maxLength, forms::Place where)
    : m_window(window),
      txtNETPATH(&forms::TextBox::add(window, "txtNETPATH", maxLength,
                                      {where.left, where.top, where.width - buttonWidth, where.height})),
      cmdSelectPath(
          &forms::addButton(window, "cmdSelectPath", "=",
                            {where.left + where.width - buttonWidth, where.top, buttonWidth, where.height},
                            [this] { cmdSelectPath_Click(); })) {
    forms::setLabelOf(label, *txtNETPATH);
    txtNETPATH->onKeyPress([](int key) { return forms::vdEnterKey(key, false, false); });
    txtNETPATH->onGotFocus([this] { forms::vdSelectAll(*txtNETPATH); });
    cmdSelectPath->setToolTip(pickerTip);
    cmdSelectPath->setAccessibleName(pickerTip);
}

void LocationBox::show(const std::string& location) {
    m_shown = location;
    txtNETPATH->Text(location);
    m_inBox = txtNETPATH->Text();
}

std::string LocationBox::location() const {
    std::string text = txtNETPATH->Text();
    return runtime::sameText(text, m_inBox) && m_inBox != m_shown ? m_shown : text;
}

void LocationBox::setVisible(bool visible) {
    txtNETPATH->setVisible(visible);
    cmdSelectPath->setVisible(visible);
}

void LocationBox::takeFocus() {
    txtNETPATH->setFocus();
}

void LocationBox::setUpperCase() {
    txtNETPATH->onLostFocus([this] { txtNETPATH->Text(runtime::upperCase(txtNETPATH->Text())); });
}

void LocationBox::cmdSelectPath_Click() {
    jobsites::frmDBPSearch picker;
    picker.sPath = txtNETPATH->Text();
    picker.showModal(&m_window);
    if (shell::vdNotBlank(picker.sPath))
        txtNETPATH->Text(picker.sPath);
}

} // namespace tol::network
