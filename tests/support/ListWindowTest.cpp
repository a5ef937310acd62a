// SPDX-License-Identifier: MIT
#include "support/ListWindowTest.h"

#include "forms/windows/Form.h"

namespace tol::test {

ListWindowTest::ListWindowTest(std::vector<QString> columns, std::vector<QString> boxes)
    : m_boxed(boxes.empty() ? columns : std::move(boxes)) {
    for (const QString& column : columns)
        m_labels.push_back("lbl" + column);
    parent.setSize(11985, 9090);
    parent.show();
}

void ListWindowTest::show(std::unique_ptr<forms::Form> made) {
    window = made.get();
    desk = std::make_unique<WindowDriver>(*window);
    parent.showChild(std::move(made));
}

std::vector<std::string> ListWindowTest::page() const {
    std::vector<std::string> rows = desk->rows(m_labels);
    const auto isBlank = [](const std::string& row) {
        return row.find_first_not_of(" |") == std::string::npos;
    };
    while (!rows.empty() && isBlank(rows.back()))
        rows.pop_back();
    return rows;
}

int ListWindowTest::highlight() const {
    const std::vector<int> rows = desk->highlighted(m_labels.front());
    EXPECT_LE(rows.size(), 1U);
    for (const QString& label : m_labels)
        EXPECT_EQ(rows, desk->highlighted(label));
    return rows.empty() ? -1 : rows.front();
}

bool ListWindowTest::isEditing() const {
    return desk->isShown("txt" + m_boxed.front());
}

void ListWindowTest::expectBox(const std::string& text, QMessageBox::Icon icon,
                               const std::string& title) const {
    ASSERT_EQ(person.boxes.size(), 1U);
    EXPECT_EQ(person.boxes[0].title, title);
    EXPECT_EQ(person.boxes[0].text, text);
    EXPECT_EQ(person.boxes[0].icon, icon);
}

void ListWindowTest::expectBoxesOver(int row) const {
    for (const QString& column : m_boxed) {
        const QRect box = desk->control("txt" + column).geometry();
        const QRect label = desk->control(QString("lbl%1(%2)").arg(column).arg(row)).geometry();
        EXPECT_EQ(box.topLeft(), label.topLeft()) << column.toStdString();
        EXPECT_EQ(box.height(), label.height());
        EXPECT_LE(box.right(), label.right());
    }
}

void ListWindowTest::expectOnlyTheExitButton() const {
    for (const QWidget* control : window->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        EXPECT_EQ(control->isVisible(), control->objectName() == "cmdExit")
            << control->objectName().toStdString();
}

} // namespace tol::test
