// SPDX-License-Identifier: MIT
#include "support/Beeps.h"

#include <QApplication>

#include <utility>

namespace {

int beeps = 0;

} // namespace

// Comes in front of Qt's own when the program is linked.
void QApplication::beep() {
    ++beeps;
}

namespace tol::test {

int takeBeeps() {
    return std::exchange(beeps, 0);
}

} // namespace tol::test
