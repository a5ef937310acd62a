// SPDX-License-Identifier: MIT
#include "forms/MessageBox.h"

#include "forms/Twips.h"

#include <QApplication>
#include <QFontMetrics>
#include <QGridLayout>
#include <QMessageBox>
#include <QPushButton>

#include <memory>
#include <span>

namespace tol::forms {
namespace {

using runtime::MsgButtons;
using runtime::MsgIcon;
using runtime::MsgResult;

struct ButtonRow {
    const char* name;
    const char* caption;
    QMessageBox::ButtonRole role;
    MsgResult result;
};

// No's role is not NoRole, since that would make Esc its key.
constexpr ButtonRow okRow{"cmdOK", "OK", QMessageBox::AcceptRole, MsgResult::Ok};
constexpr ButtonRow cancelRow{"cmdCancel", "Cancel", QMessageBox::RejectRole, MsgResult::Cancel};
constexpr ButtonRow yesRow{"cmdYes", "&Yes", QMessageBox::YesRole, MsgResult::Yes};
constexpr ButtonRow noRow{"cmdNo", "&No", QMessageBox::AcceptRole, MsgResult::No};

constexpr ButtonRow okButtons[] = {okRow};
constexpr ButtonRow okCancelButtons[] = {okRow, cancelRow};
constexpr ButtonRow yesNoButtons[] = {yesRow, noRow};

std::span<const ButtonRow> rowsOf(MsgButtons buttons) {
    switch (buttons) {
    case MsgButtons::OkCancel:
        return okCancelButtons;
    case MsgButtons::YesNo:
        return yesNoButtons;
    case MsgButtons::Ok:
        break;
    }
    return okButtons;
}

QMessageBox::Icon iconOf(MsgIcon icon) {
    switch (icon) {
    case MsgIcon::Critical:
        return QMessageBox::Critical;
    case MsgIcon::Question:
        return QMessageBox::Question;
    case MsgIcon::Exclamation:
        return QMessageBox::Warning;
    case MsgIcon::Information:
        return QMessageBox::Information;
    case MsgIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

/// Makes the box at least as wide as its title and the window's own buttons, since a title is cut otherwise.
void widenForTitle(QMessageBox& box) {
    constexpr int besideTitle = 2400; // twips
    QFont font = box.font();
    font.setBold(true);
    const int width = QFontMetrics(font).horizontalAdvance(box.windowTitle()) + toPixels(besideTitle);
    auto& grid = dynamic_cast<QGridLayout&>(*box.layout()); // the box sets its size by it alone
    grid.addItem(std::make_unique<QSpacerItem>(width, 0).release(), grid.rowCount(), 0, 1,
                 grid.columnCount());
}

} // namespace

MsgResult showMessageBox(const std::string& text, runtime::MsgStyle style, const std::string& title) {
    QMessageBox box(QApplication::activeWindow());
    box.setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                       Qt::WindowCloseButtonHint);
    box.setObjectName("msgBox");
    box.setWindowTitle(QString::fromStdString(title));
    box.setTextFormat(Qt::PlainText);
    box.setText(QString::fromStdString(text));
    box.setIcon(iconOf(style.icon));
    const auto rows = rowsOf(style.buttons);
    for (const ButtonRow& row : rows) {
        QPushButton* button = box.addButton(row.caption, row.role);
        button->setObjectName(row.name);
        if (&row == &rows.front())
            box.setDefaultButton(button);
    }
    widenForTitle(box);
    box.exec();
    for (const ButtonRow& row : rows)
        if (box.clickedButton() != nullptr && box.clickedButton()->objectName() == row.name)
            return row.result;
    return rows.back().result; // closed from outside
}

} // namespace tol::forms
