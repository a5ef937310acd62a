// SPDX-License-Identifier: MIT
#include "support/WindowDriver.h"

#include "support/KeepPicture.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QWindow>

#include <stdexcept>

namespace tol::test {

void WindowDriver::throwMissing(const QString& name) const {
    throw std::logic_error(m_window.objectName().toStdString() + " has no control " + name.toStdString());
}

void WindowDriver::comeToFront() const {
    m_window.window()->activateWindow();
    if (!QTest::qWaitForWindowActive(m_window.window()))
        throw std::logic_error("the window does not come to the front");
}

void WindowDriver::press(Qt::Key key, Qt::KeyboardModifiers held) const {
    comeToFront();
    QWidget* receiver = m_window.focusWidget();
    QTest::keyClick(receiver != nullptr ? receiver : &m_window, key, held);
    QCoreApplication::processEvents(); // a key may lead to another one
}

void WindowDriver::type(const QString& text) const {
    comeToFront();
    QTest::keyClicks(m_window.focusWidget(), text);
}

QPoint WindowDriver::middleOf(const QString& name) const {
    const QWidget& widget = control(name);
    if (!widget.isVisible() || !widget.isEnabled())
        throw std::logic_error(name.toStdString() + " is out of sight or out of use");
    const QPoint middle = widget.mapTo(widget.window(), widget.rect().center());
    if (widget.window()->childAt(middle) != &widget)
        throw std::logic_error(name.toStdString() + " is covered");
    return middle;
}

void WindowDriver::click(const QString& name) const {
    comeToFront();
    QTest::mouseClick(m_window.window()->windowHandle(), Qt::LeftButton, {}, middleOf(name));
}

void WindowDriver::doubleClick(const QString& name) const {
    comeToFront();
    QTest::mouseDClick(m_window.window()->windowHandle(), Qt::LeftButton, {}, middleOf(name));
}

std::string WindowDriver::focus() const {
    const QWidget* widget = m_window.focusWidget();
    return widget == nullptr ? std::string() : widget->objectName().toStdString();
}

std::string WindowDriver::text(const QString& name) const {
    const QWidget& widget = control(name);
    if (const auto* label = dynamic_cast<const QLabel*>(&widget))
        return label->text().toStdString();
    if (const auto* box = dynamic_cast<const QLineEdit*>(&widget))
        return box->text().toStdString();
    return dynamic_cast<const QAbstractButton&>(widget).text().toStdString();
}

QWidget* WindowDriver::element(const QString& label, int row) const {
    return m_window.findChild<QWidget*>(QString("%1(%2)").arg(label).arg(row));
}

std::vector<std::string> WindowDriver::rows(const std::vector<QString>& labels) const {
    std::vector<std::string> result;
    for (int row = 0; element(labels.at(0), row) != nullptr; ++row) {
        QStringList captions;
        for (const QString& label : labels)
            captions.push_back(dynamic_cast<const QLabel&>(*element(label, row)).text());
        result.push_back(captions.join('|').toStdString());
    }
    return result;
}

std::vector<int> WindowDriver::highlighted(const QString& label) const {
    std::vector<int> result;
    for (int row = 0; element(label, row) != nullptr; ++row)
        if (element(label, row)->grab().toImage().pixelColor(1, 1) == QColor(255, 255, 0))
            result.push_back(row);
    return result;
}

void WindowDriver::keepPicture(const QString& name) const {
    test::keepPicture(m_window, name);
}

} // namespace tol::test
