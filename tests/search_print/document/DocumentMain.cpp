// SPDX-License-Identifier: MIT
#include <QGuiApplication>

#include <gmock/gmock.h>

#include <cstdlib>

#if defined(__SANITIZE_ADDRESS__)
// The font library keeps its configuration until the process ends.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig\n";
}
#endif

// Fonts need an application object, but no display.
int main(int count, char** arguments) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    testing::InitGoogleMock(&count, arguments);
    const QGuiApplication application(count, arguments);
    return RUN_ALL_TESTS();
}
