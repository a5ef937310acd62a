// SPDX-License-Identifier: MIT
// The windowed program in the current folder, with a person before it who presses keys and clicks at random.
// Arguments: seed, seconds.
#include "RandomPerson.h"
#include "data/DBEngine.h"
#include "data/sqlite/SqliteEngine.h"
#include "forms/events/Application.h"
#include "forms/events/ErrorGuard.h"
#include "forms/events/WindowHost.h"
#include "shell/frmTOLMAIN.h"
#include "tol/Windows.h"

#include <QDesktopServices>
#include <QTextBrowser>

#include <string>

int main(int count, char** arguments) {
    if (count != 3)
        return 2;
    const tol::forms::Application application("Tolvane Module");
    const tol::forms::WindowHost host;
    QTextBrowser browser; // in the place of the person's own
    QDesktopServices::setUrlHandler("https", &browser, "setSource");
    tol::data::DBEngine::addEngine(std::make_unique<tol::data::sqlite::SqliteEngine>());
    tol::shell::frmTOLMAIN mainWindow;
    tol::addWindows(mainWindow);
    tol::forms::guarded([&] { mainWindow.load(); });
    const tol::test::RandomPerson person(static_cast<unsigned>(std::stoul(arguments[1])),
                                         std::chrono::seconds(std::stol(arguments[2])));
    return tol::forms::Application::exec();
}
