// SPDX-License-Identifier: MIT
#include "screens/ListPanel.h"

#include "forms/controls/Controls.h"
#include "forms/events/Focus.h"
#include "forms/events/Keys.h"
#include "forms/look/Pictures.h"
#include "forms/windows/Form.h"
#include "screens/RowLabel.h"
#include "screens/browse/BrowseList.h"

#include <QEvent>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>

#include <algorithm>

namespace tol::screens {
namespace {

constexpr int headingHeight = 270;
constexpr int border = 30;
constexpr int focusHolderSize = 30;
constexpr int gap = 120; // between rows and buttons
constexpr int buttonWidth = 480;
constexpr int tallestButton = 360;
constexpr QRgb mRowHiColor = rgb(256, 256, 0), mRowColor = rgb(256, 256, 256);

struct MoveButton {
    const char* name;
    const char* description;
    forms::Picture picture;
    int key; ///< keyNone for the action button
};

// From top to bottom; the first three keep to the top of the rows, the last three to their end.
constexpr MoveButton moveButtons[] = {
    {"HOME", "First record", forms::Picture::First, forms::keyHome},
    {"PGUP", "Page up", forms::Picture::PageUp, forms::keyPageUp},
    {"UPARROW", "Line up", forms::Picture::LineUp, forms::keyUp},
    {"ACTION", "Edit or add", forms::Picture::Action, forms::keyNone},
    {"DNARROW", "Line down", forms::Picture::LineDown, forms::keyDown},
    {"PGDN", "Page down", forms::Picture::PageDown, forms::keyPageDown},
    {"END", "Last record", forms::Picture::Last, forms::keyEnd},
};
constexpr int buttonCount = std::size(moveButtons);
constexpr int actionButton = buttonCount / 2;

Qt::Alignment alignment(TextAlign align) {
    constexpr Qt::AlignmentFlag sides[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
    return sides[static_cast<int>(align)] | Qt::AlignVCenter;
}

/// The border of the rows, set off while the list has the keyboard.
class RowsFrame : public QWidget {
  public:
    RowsFrame(QWidget& parent, QWidget& focusHolder) : QWidget(&parent), m_focusHolder(focusHolder) {
        focusHolder.installEventFilter(this);
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
            update();
        return false;
    }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), Qt::white);
        const QPalette::ColorRole role = m_focusHolder.hasFocus() ? QPalette::Highlight : QPalette::Mid;
        const int thickness = forms::toPixels(border);
        painter.fillRect(QRect(0, 0, width(), thickness), palette().color(role));
        painter.fillRect(QRect(0, height() - thickness, width(), thickness), palette().color(role));
        painter.fillRect(QRect(0, 0, thickness, height()), palette().color(role));
        painter.fillRect(QRect(width() - thickness, 0, thickness, height()), palette().color(role));
    }

  private:
    QWidget& m_focusHolder;
};

} // namespace

ListPanel::ListPanel(forms::Form& form, const BrowseDescription& description, const ListPlace& place)
    : m_form(form),
      m_left(place.left),
      m_top(place.top),
      m_rowCount(description.rows),
      m_focusHolder(&forms::addScrollBar(
          form, place.focusHolder, place.caption,
          {place.left + border, place.top + headingHeight + border, focusHolderSize, focusHolderSize})) {
    makeRows(description, place.coloredHeadings);
    makeButtons(place.buttons);
}

void ListPanel::makeRows(const BrowseDescription& description, bool coloredHeadings) {
    auto& frame = *new RowsFrame(m_form, *m_focusHolder);
    frame.setObjectName(m_focusHolder->objectName().replace("hsb", "fra"));
    m_rows.resize(m_rowCount);
    int left = m_left + border;
    for (const BrowseColumn& column : description.columns) {
        makeHeading(column, left, coloredHeadings);
        makeColumn(column, left);
        m_columnLefts.push_back(left);
        left += column.width;
    }
    m_columnLefts.push_back(left);
    forms::place(frame, {m_left, m_top + headingHeight, left + border - m_left, rowsHeight()});
}

/// A heading's text begins where those of the rows do; blanks before it lie to the left, unless the heading
/// is seen to end there.
void ListPanel::makeHeading(const BrowseColumn& column, int left, bool colored) {
    const QString text = QString::fromStdString(column.heading);
    QLabel& heading = forms::addLabel(m_form, QString::fromStdString(column.headingLabel), text, {});
    forms::setTextSize(heading, 100, !colored); // its colour sets a heading apart as well
    const auto letter = std::ranges::find_if(text, [](QChar c) { return c != u' '; });
    const QString blanks = colored ? QString() : text.first(letter - text.begin());
    const int before = forms::toTwips(heading.fontMetrics().horizontalAdvance(blanks));
    const int divider = colored ? 15 : 0;
    forms::place(heading, {left - before, m_top, column.width + before - divider, headingHeight});
    heading.setIndent(forms::toPixels(RowLabel::margin));
    heading.setAlignment(alignment(column.align));
    heading.setAutoFillBackground(colored);
    heading.setVisible(column.width > 0);
    m_headings.push_back(&heading);
}

void ListPanel::makeColumn(const BrowseColumn& column, int left) {
    for (int row = 0; row < m_rowCount; ++row) {
        auto& label = *new RowLabel(
            m_form, QString("%1(%2)").arg(QString::fromStdString(column.label)).arg(row), column.cut);
        forms::place(label, {left, rowTop(row), column.width, rowHeight});
        label.setAlignment(alignment(column.align));
        label.setVisible(column.width > 0);
        const int index = static_cast<int>(m_rows[row].size());
        if (column.selects)
            forms::onClick(
                label, [this, row, index] { clickRow(row, index); },
                [this, row, index] { doubleClickRow(row, index); });
        m_rows[row].push_back(&label);
    }
}

void ListPanel::makeButtons(const QString& prefix) {
    const int height = std::min(tallestButton, rowsHeight() / buttonCount);
    const int left = m_columnLefts.back() + border + gap;
    const int top = m_top + headingHeight;
    for (int i = 0; i < buttonCount; ++i) {
        const MoveButton& button = moveButtons[i];
        int where = top + i * height;
        if (i == actionButton)
            where = top + (rowsHeight() - height) / 2;
        else if (i > actionButton)
            where = top + rowsHeight() - (buttonCount - i) * height;
        m_buttons.push_back(&forms::addPictureButton(
            m_form, prefix + button.name, forms::picture(button.picture), button.description,
            {left, where, buttonWidth, height},
            [this, key = button.key] { key == forms::keyNone ? clickAction() : clickMove(key); }));
    }
    enableButtons();
}

void ListPanel::connectTo(BrowseList& list, std::function<void(int)> columnClicked) {
    m_list = &list;
    m_columnClicked = std::move(columnClicked);
    enableButtons();
}

void ListPanel::disconnect() {
    m_list = nullptr;
    m_columnClicked = nullptr;
    enableButtons();
}

void ListPanel::setAction(const QString& description, forms::EventProcedure click) {
    QPushButton& button = *m_buttons[actionButton];
    button.setVisible(click != nullptr);
    button.setToolTip(description);
    button.setAccessibleName(description);
    m_action = std::move(click);
}

void ListPanel::clickRow(int row, int column) {
    if (m_list == nullptr || !isInUse())
        return;
    if (m_columnClicked)
        m_columnClicked(column);
    m_list->BrowseRowClick(row);
}

void ListPanel::doubleClickRow(int row, int column) {
    clickRow(row, column);
    if (m_doubleClicked && m_list != nullptr && m_list->row() == row)
        m_doubleClicked();
}

void ListPanel::onHeadingClick(std::function<void(int)> procedure) {
    for (int column = 0; column < static_cast<int>(m_headings.size()); ++column) {
        forms::onClick(*m_headings[column], [this, column, procedure] {
            if (!isInUse())
                return;
            procedure(column);
            takeFocus();
        });
    }
}

void ListPanel::setHeadingColor(int column, QRgb color) {
    QPalette palette = m_headings.at(column)->palette();
    palette.setColor(QPalette::Window, QColor(color));
    m_headings.at(column)->setPalette(palette);
}

void ListPanel::clickMove(int key) {
    if (m_list == nullptr)
        return;
    m_list->BrowseKeyDown(key, 0);
    takeFocus();
}

void ListPanel::clickAction() {
    if (m_action)
        m_action();
    else if (m_list != nullptr)
        m_list->act();
}

void ListPanel::setCaption(int row, int column, const std::string& caption) {
    label(row, column).setText(QString::fromStdString(caption));
}

void ListPanel::setHighlight(int row, bool on) {
    for (RowLabel* label : m_rows.at(row))
        label->setBackColor(on ? mRowHiColor : mRowColor);
}

void ListPanel::announce(const std::string& text) {
    forms::announce(*m_focusHolder, QString::fromStdString(text));
    if (m_highlighted)
        m_highlighted(text);
}

void ListPanel::takeFocus() {
    m_form.focusOn(*m_focusHolder);
}

bool ListPanel::isShown() const {
    return m_form.isVisible();
}

void ListPanel::setInUse(bool inUse) {
    m_focusHolder->setEnabled(inUse);
    enableButtons();
}

void ListPanel::enableButtons() {
    for (QPushButton* button : m_buttons)
        button->setEnabled(isInUse() && m_list != nullptr);
}

bool ListPanel::isInUse() const {
    return m_focusHolder->isEnabled();
}

bool ListPanel::hasFocus() const {
    return m_focusHolder->hasFocus();
}

int ListPanel::rowsHeight() const {
    return m_rowCount * rowHeight + 2 * border;
}

int ListPanel::width() const {
    return m_columnLefts.back() + border + gap + buttonWidth - m_left;
}

int ListPanel::height() const {
    return headingHeight + rowsHeight();
}

int ListPanel::rowTop(int row) const {
    return m_top + headingHeight + border + row * rowHeight;
}

int ListPanel::columnWidth(int column) const {
    return m_columnLefts.at(column + 1) - m_columnLefts.at(column);
}

} // namespace tol::screens
