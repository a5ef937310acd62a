// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QWidget>

#include <chrono>
#include <deque>
#include <random>
#include <string>

namespace tol::test {

/// A person at the desk who presses keys and clicks at random, a few hundred times a second, also while a box
/// stands or a run works. The same seed makes the same choices. Looks at the program before each step
/// and ends it with status 3, telling what was done last, when a run-time error box stands, or when it is not
/// to be seen what has the keyboard. After its time it ends the program as the menu does.
class RandomPerson : public QObject {
  public:
    RandomPerson(unsigned seed, std::chrono::seconds time);

    static constexpr int foundFault = 3; ///< exit status

  private:
    void next();
    bool isFrontReady(QWidget& front);
    void failOnErrorBox(QWidget* front);
    void act(QWidget& front);
    [[noreturn]] void fail(const std::string& fault);

    void clickControl(QWidget& front);
    void clickAnywhere(QWidget& front);
    void clickAt(QWidget& front, const QPoint& where, const QString& name);
    void press(QWidget& front, int key, Qt::KeyboardModifiers held = {});
    void pressAnyKey(QWidget& front);
    void pressLetter(QWidget& front, Qt::KeyboardModifiers held);
    void typeText(QWidget& front);
    void openWindow(QWidget& front);
    void closeWindow(QWidget& front);
    void minimise(QWidget& front);
    void resize(QWidget& front);
    void lookElsewhere();

    [[nodiscard]] int any(int count) { return static_cast<int>(m_choice() % static_cast<unsigned>(count)); }
    [[nodiscard]] QPoint anyPoint(const QRect& in);
    void note(const QString& step);

    std::mt19937 m_choice;
    QElapsedTimer m_time, m_step;
    std::chrono::seconds m_end;
    QWidget m_elsewhere; ///< the window of another program
    bool m_inStep = false;
    int m_waits = 0; ///< in a row, for a fault to pass
    std::deque<std::string> m_notes;
};

} // namespace tol::test
