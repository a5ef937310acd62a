// SPDX-License-Identifier: MIT
#include "Controls.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QTest>

namespace tol::test {

std::string textOf(const QWidget& window, const QString& name) {
    const QVariant text = control<QWidget>(window, name).property("text");
    EXPECT_TRUE(text.isValid()) << name.toStdString();
    return text.toString().toStdString();
}

bool isEnabled(const QWidget& window, const QString& name) {
    return control<QWidget>(window, name).isEnabled();
}

bool isVisible(const QWidget& window, const QString& name) {
    return control<QWidget>(window, name).isVisible();
}

void click(const QWidget& window, const QString& name) {
    QTest::mouseClick(&control<QWidget>(window, name), Qt::LeftButton);
}

void press(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QWidget* receiver = QApplication::focusWidget();
    QTest::keyClick(receiver == nullptr ? &window : receiver, key, modifiers);
}

std::string focused(const QWidget& window) {
    const QWidget* widget = QApplication::focusWidget();
    return widget != nullptr && window.isAncestorOf(widget) ? widget->objectName().toStdString() : "";
}

void keepPicture(QWidget& window, const QString& name) {
    const QString folder = qEnvironmentVariable("TOL_SCREENSHOTS");
    EXPECT_TRUE(folder.isEmpty() || window.grab().save(QDir(folder).filePath(name + ".png")));
}

} // namespace tol::test
