// SPDX-License-Identifier: MIT
#include "forms/events/Application.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <iostream>

#if defined(__SANITIZE_ADDRESS__)
// The font library keeps its configuration until the process ends.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig\n";
}
#endif

// Messages go to the test's output, since some tests read what the program itself writes to the other
// stream; what the offscreen platform can't do is no news.
static void writeMessage(QtMsgType, const QMessageLogContext&, const QString& message) {
    if (!message.startsWith("This plugin does not support"))
        std::cout << message.toStdString() << std::endl;
}

int main(int count, char** arguments) {
    qInstallMessageHandler(writeMessage);
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    testing::InitGoogleMock(&count, arguments);
    // A window program can't be forked; tests of its end start the test program anew.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const tol::forms::Application application("Tolvane Module");
    return RUN_ALL_TESTS();
}
