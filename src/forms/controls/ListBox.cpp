// SPDX-License-Identifier: MIT
#include "forms/controls/ListBox.h"

#include <QKeyEvent>

namespace tol::forms {
namespace {

constexpr int iconTwips = 240;

} // namespace

ListBox& ListBox::add(QWidget& parent, const QString& name, Place where) {
    auto& box = *new ListBox(parent);
    box.setObjectName(name);
    place(box, where);
    return box;
}

ListBox::ListBox(QWidget& parent) : QListWidget(&parent) {
    setEditTriggers(NoEditTriggers);
    setIconSize(QSize(toPixels(iconTwips), toPixels(iconTwips)));
    setTabKeyNavigation(false);
    connect(this, &QListWidget::itemSelectionChanged, this, [this] {
        if (!m_byProgram && m_click && ListIndex() >= 0)
            runEvent(*this, m_click);
    });
    connect(this, &QListWidget::itemClicked, this, [this] {
        if (m_mouseClick)
            runEvent(*this, m_mouseClick);
    });
}

void ListBox::AddItem(const std::string& line) {
    addItem(QString::fromStdString(line));
}

void ListBox::Clear() {
    m_byProgram = true;
    clear();
    m_byProgram = false;
}

std::string ListBox::List(int position) const {
    const QListWidgetItem* line = item(position);
    return line != nullptr ? line->text().toStdString() : std::string();
}

int ListBox::ListIndex() const {
    const QModelIndexList selected = selectedIndexes();
    return selected.isEmpty() ? -1 : selected.front().row();
}

void ListBox::ListIndex(int position) {
    m_byProgram = true;
    if (position < 0)
        clearSelection();
    else
        setCurrentRow(position);
    m_byProgram = false;
}

std::string ListBox::Text() const {
    return List(ListIndex());
}

void ListBox::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && m_enter)
        return runEvent(*this, m_enter);
    if (isEnter)
        return event->ignore();
    if (!selectFirst(event->key()))
        QListWidget::keyPressEvent(event);
}

// While nothing is selected, the first arrow key selects a line rather than stepping on from one that nobody
// sees.
bool ListBox::selectFirst(int key) {
    if (ListIndex() >= 0 || count() == 0 || (key != Qt::Key_Down && key != Qt::Key_Up))
        return false;
    setCurrentRow(0);
    item(0)->setSelected(true);
    return true;
}

void ListBox::mouseDoubleClickEvent(QMouseEvent* event) {
    QListWidget::mouseDoubleClickEvent(event);
    if (m_doubleClick && event->button() == Qt::LeftButton && itemAt(event->pos()) != nullptr)
        runEvent(*this, m_doubleClick);
}

} // namespace tol::forms
