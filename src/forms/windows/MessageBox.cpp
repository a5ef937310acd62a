// SPDX-License-Identifier: MIT
#include "forms/windows/MessageBox.h"

#include "forms/look/LineBreaks.h"
#include "forms/look/Twips.h"

#include <QApplication>
#include <QFontMetrics>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>

#include <algorithm>
#include <iterator>
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

struct IconRow {
    MsgIcon icon;
    QMessageBox::Icon shown;
    const char* name; ///< for those who can't see it
};

constexpr IconRow iconRows[] = {
    {MsgIcon::Critical, QMessageBox::Critical, "Error"},
    {MsgIcon::Question, QMessageBox::Question, "Question"},
    {MsgIcon::Exclamation, QMessageBox::Warning, "Warning"},
    {MsgIcon::Information, QMessageBox::Information, "Information"},
};

void setIcon(QMessageBox& box, MsgIcon icon) {
    const auto row = std::ranges::find(iconRows, icon, &IconRow::icon);
    if (row == std::end(iconRows))
        return;
    box.setIcon(row->shown);
    if (auto* label = box.findChild<QLabel*>("qt_msgboxex_icon_label"))
        label->setAccessibleName(row->name);
}

/// A message box as large as its text, whose lines it leaves as they are.
class WholeTextBox : public QMessageBox {
  public:
    using QMessageBox::QMessageBox;

    /// Breaks the text where it may be broken. Those who can't see the box are told it as it was.
    void setWholeText(const std::string& text) {
        const QString whole = QString::fromStdString(text);
        const int room = screen()->availableSize().width() - toPixels(besideText);
        auto& label = *findChild<QLabel*>("qt_msgbox_label");
        setTextFormat(Qt::PlainText);
        setText(inLines(whole, label.fontMetrics(), std::min(toPixels(usualWidth), room), room));
        label.setAccessibleName(whole);
        label.setFocusPolicy(Qt::NoFocus); // a click on the text leaves the keyboard to the buttons
    }

  protected:
    bool event(QEvent* event) override {
        const bool handled = QMessageBox::event(event);
        if (event->type() == QEvent::LayoutRequest)
            fit();
        return handled;
    }

    void showEvent(QShowEvent* event) override {
        QMessageBox::showEvent(event);
        fit();
    }

  private:
    static constexpr int usualWidth = 10500; // twips, of a text
    static constexpr int besideText = 2400;  // twips: icon and edges

    // The base class would give no text more than a part of the screen, and break it anywhere.
    void fit() {
        findChild<QLabel*>("qt_msgbox_label")->setWordWrap(false);
        layout()->activate();
        setFixedSize(layout()->totalMinimumSize());
    }
};

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
    WholeTextBox box(QApplication::activeWindow());
    box.setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                       Qt::WindowCloseButtonHint);
    box.setObjectName("msgBox");
    box.setWindowTitle(QString::fromStdString(title));
    box.setWholeText(text);
    setIcon(box, style.icon);
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
