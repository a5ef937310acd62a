// SPDX-License-Identifier: MIT
#include "RandomPerson.h"

#include "FocusShown.h"
#include "forms/events/ErrorGuard.h"
#include "runtime/Host.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QScopedValueRollback>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <cstdio>
#include <cstdlib>
#include <fmt/format.h>
#include <iterator>

namespace tol::test {
namespace {

constexpr int betweenSteps = 2;        // milliseconds
constexpr int longStep = 30;           // milliseconds: it works, or waits for an answer
constexpr int mostWaits = 500;         // steps left out in a row: about a second
constexpr std::size_t mostNotes = 60;  // steps told of a failure
constexpr std::size_t longestText = 6; // keys

/// What has the keyboard, or should have it.
QWidget* frontWindow() {
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    QWidget* front = nullptr;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->windowType() == Qt::Window && !window->objectName().isEmpty() &&
            (front == nullptr || dynamic_cast<QMainWindow*>(window) != nullptr))
            front = window;
    return front;
}

bool canBeClicked(const QWidget& control) {
    const bool isOfInterest = dynamic_cast<const QAbstractButton*>(&control) != nullptr ||
                              dynamic_cast<const QLabel*>(&control) != nullptr ||
                              dynamic_cast<const QLineEdit*>(&control) != nullptr ||
                              dynamic_cast<const QComboBox*>(&control) != nullptr ||
                              dynamic_cast<const QMenuBar*>(&control) != nullptr ||
                              dynamic_cast<const QAbstractItemView*>(control.parentWidget()) != nullptr;
    return isOfInterest && control.isVisible() && !control.visibleRegion().isEmpty();
}

std::string nameOf(const QWidget& widget) {
    return fmt::format("{} {}", widget.metaObject()->className(), widget.objectName().toStdString());
}

QMdiSubWindow* frontChild(QWidget& front) {
    const auto* area = front.findChild<QMdiArea*>();
    return area != nullptr ? area->activeSubWindow() : nullptr;
}

} // namespace

RandomPerson::RandomPerson(unsigned seed, std::chrono::seconds time) : m_choice(seed), m_end(time) {
    m_time.start();
    QTimer::singleShot(betweenSteps, this, [this] { next(); });
}

// The next step is due even when this one brings up what waits for an answer. One that comes while
// the last one is only being delivered is left out.
void RandomPerson::next() {
    QTimer::singleShot(betweenSteps, this, [this] { next(); });
    if (m_inStep && m_step.elapsed() < longStep)
        return;
    if (m_time.hasExpired(std::chrono::milliseconds(m_end).count()))
        forms::guarded([] { runtime::host().end(); });
    QWidget* front = frontWindow();
    failOnErrorBox(front);
    const std::string fault =
        front == nullptr || !isFrontReady(*front) ? "no window takes the keyboard" : focusFault(*front);
    if (!fault.empty()) { // what a step set off may not have come to its end
        if (++m_waits > mostWaits)
            fail(fault);
        return;
    }
    m_waits = 0;
    const QScopedValueRollback inStep(m_inStep, true);
    m_step.start();
    act(*front);
}

/// What a window manager does: it brings back what was minimised, and gives the keyboard to what is in front.
bool RandomPerson::isFrontReady(QWidget& front) {
    if (QApplication::activePopupWidget() != nullptr)
        return true;
    if (front.isMinimized())
        front.showNormal();
    if (!front.isActiveWindow()) {
        m_elsewhere.hide();
        front.activateWindow();
    }
    return front.isActiveWindow() && front.windowHandle() != nullptr && front.windowHandle()->isExposed();
}

void RandomPerson::failOnErrorBox(QWidget* front) {
    const auto* box = dynamic_cast<QMessageBox*>(front);
    if (box != nullptr &&
        (box->text().startsWith("Run-time error") || box->text().startsWith("Internal error")))
        fail("a box says: " + box->text().toStdString());
}

void RandomPerson::fail(const std::string& fault) {
    fmt::print(stderr, "{}\nThe last steps:\n", fault);
    for (const std::string& step : m_notes)
        fmt::print(stderr, "  {}\n", step);
    std::fflush(nullptr);
    std::_Exit(foundFault);
}

void RandomPerson::note(const QString& step) {
    m_notes.push_back(step.toStdString());
    if (m_notes.size() > mostNotes)
        m_notes.pop_front();
}

// The steps.

void RandomPerson::act(QWidget& front) {
    struct Step {
        int weight;
        std::function<void()> take;
    };
    const Step steps[] = {
        {40, [&] { clickControl(front); }},
        {30, [&] { pressAnyKey(front); }},
        {8, [&] { pressLetter(front, Qt::AltModifier); }},
        {6, [&] { pressLetter(front, {}); }},
        {2, [&] { pressLetter(front, Qt::ControlModifier); }},
        {5, [&] { typeText(front); }},
        {4, [&] { openWindow(front); }},
        {4, [&] { clickAnywhere(front); }},
        {2, [&] { closeWindow(front); }},
        {1, [&] { minimise(front); }},
        {1, [&] { resize(front); }},
        {1, [&] { lookElsewhere(); }},
        {1, [&] { press(front, Qt::Key_Alt); }},
    };
    if (dynamic_cast<QFileDialog*>(&front) != nullptr) // not the program's own, and it can delete files
        return press(front, Qt::Key_Escape);
    int left = 0;
    for (const Step& step : steps)
        left += step.weight;
    left = any(left);
    for (const Step& step : steps)
        if ((left -= step.weight) < 0)
            return step.take();
}

QPoint RandomPerson::anyPoint(const QRect& in) {
    return in.topLeft() + QPoint(any(in.width()), any(in.height()));
}

void RandomPerson::clickAt(QWidget& front, const QPoint& where, const QString& name) {
    const bool twice = any(20) == 0;
    note(QString("%1 at %2, %3 (%4)")
             .arg(twice ? "double click" : "click")
             .arg(where.x())
             .arg(where.y())
             .arg(name));
    if (twice)
        QTest::mouseDClick(front.windowHandle(), Qt::LeftButton, {}, where);
    else
        QTest::mouseClick(front.windowHandle(), Qt::LeftButton, {}, where);
}

void RandomPerson::clickControl(QWidget& front) {
    if (QWidget* popup = QApplication::activePopupWidget())
        return clickAt(*popup, anyPoint(popup->rect()), "menu");
    QList<QWidget*> controls = front.findChildren<QWidget*>();
    controls.removeIf(
        [&](const QWidget* control) { return control->window() != &front || !canBeClicked(*control); });
    if (controls.isEmpty())
        return clickAnywhere(front);
    const QWidget& control = *controls[any(static_cast<int>(controls.size()))];
    const QPoint where = anyPoint(control.visibleRegion().boundingRect());
    clickAt(front, control.mapTo(&front, where), QString::fromStdString(nameOf(control)));
}

void RandomPerson::clickAnywhere(QWidget& front) {
    clickAt(front, anyPoint(front.rect()), "anywhere");
}

void RandomPerson::press(QWidget& front, int key, Qt::KeyboardModifiers held) {
    QWidget* popup = QApplication::activePopupWidget();
    note("key " + QKeySequence(static_cast<int>(held) | key).toString());
    QTest::keyClick((popup != nullptr ? *popup : front).windowHandle(), static_cast<Qt::Key>(key), held);
}

void RandomPerson::pressAnyKey(QWidget& front) {
    constexpr Qt::Key keys[] = {Qt::Key_Tab,      Qt::Key_Backtab, Qt::Key_Return,    Qt::Key_Escape,
                                Qt::Key_Space,    Qt::Key_Up,      Qt::Key_Down,      Qt::Key_Left,
                                Qt::Key_Right,    Qt::Key_Home,    Qt::Key_End,       Qt::Key_PageUp,
                                Qt::Key_PageDown, Qt::Key_Delete,  Qt::Key_Backspace, Qt::Key_Insert,
                                Qt::Key_F4,       Qt::Key_F10,     Qt::Key_Enter,     Qt::Key_Down};
    press(front, keys[any(std::size(keys))]);
}

void RandomPerson::pressLetter(QWidget& front, Qt::KeyboardModifiers held) {
    press(front, Qt::Key_A + any(26), held);
}

void RandomPerson::typeText(QWidget& front) {
    constexpr char letters[] = "abcdez019 ./-\\:";
    for (std::size_t length = m_choice() % longestText + 1; length > 0; --length) {
        const char letter = letters[any(std::size(letters) - 1)];
        note(QString("type %1").arg(letter));
        QWidget* popup = QApplication::activePopupWidget();
        QTest::keyClick((popup != nullptr ? *popup : front).windowHandle(), letter);
    }
}

void RandomPerson::openWindow(QWidget& front) {
    constexpr struct {
        Qt::Key menu, item;
    } windows[] = {
        {Qt::Key_F, Qt::Key_2}, {Qt::Key_A, Qt::Key_2}, {Qt::Key_U, Qt::Key_1}, {Qt::Key_R, Qt::Key_1}};
    const auto& window = windows[any(std::size(windows))];
    press(front, window.menu, Qt::AltModifier);
    press(front, window.item);
}

void RandomPerson::closeWindow(QWidget& front) {
    constexpr int seldom = 10; // since it ends the program
    QMdiSubWindow* child = frontChild(front);
    if (child == nullptr && dynamic_cast<QMainWindow*>(&front) != nullptr && any(seldom) != 0)
        return;
    QWidget& closed = child != nullptr ? *child : front;
    note("close " + closed.objectName());
    closed.close();
}

void RandomPerson::minimise(QWidget& front) {
    QMdiSubWindow* child = frontChild(front);
    if (child != nullptr && any(2) == 0) {
        note(child->isMinimized() ? "restore the child" : "minimise the child");
        return child->isMinimized() ? child->showNormal() : child->showMinimized();
    }
    if (dynamic_cast<QMainWindow*>(&front) == nullptr)
        return;
    note("minimise the program");
    front.showMinimized();
}

// A main window too small for its children would hide what has the keyboard.
void RandomPerson::resize(QWidget& front) {
    note("resize");
    const bool isMain = dynamic_cast<QMainWindow*>(&front) != nullptr;
    const QSize least = isMain ? QSize(900, 700) : QSize(300, 200);
    front.resize(least + QSize(any(500), any(300)));
}

void RandomPerson::lookElsewhere() {
    note("another program takes the keyboard");
    m_elsewhere.show();
    m_elsewhere.activateWindow();
}

} // namespace tol::test
