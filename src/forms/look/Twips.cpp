// SPDX-License-Identifier: MIT
#include "forms/look/Twips.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <cmath>

namespace tol::forms {
namespace {

constexpr double twipsPerInch = 1440;
constexpr double usualDotsPerInch = 96;

double dotsPerInch() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen != nullptr ? screen->logicalDotsPerInch() : usualDotsPerInch;
}

} // namespace

int toPixels(int twips) {
    return static_cast<int>(std::lround(twips * dotsPerInch() / twipsPerInch));
}

int toTwips(int pixels) {
    return static_cast<int>(std::lround(pixels * twipsPerInch / dotsPerInch()));
}

void place(QWidget& control, Place where) {
    const int left = toPixels(where.left);
    const int top = toPixels(where.top);
    // Both edges are rounded, so that neighbours meet without a gap at any scale.
    control.setGeometry(left, top, toPixels(where.left + where.width) - left,
                        toPixels(where.top + where.height) - top);
}

} // namespace tol::forms
