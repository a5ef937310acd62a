// SPDX-License-Identifier: MIT
#include "data/DBEngine.h"
#include "data/sqlite/SqliteEngine.h"
#include "forms/events/Application.h"
#include "forms/events/ErrorGuard.h"
#include "forms/events/WindowHost.h"
#include "shell/frmTOLMAIN.h"
#include "tol/Windows.h"

// The command line is not read: where things are is told by the databases of the current folder.
int main() {
    const tol::forms::Application application("Tolvane Module");
    const tol::forms::WindowHost host;
    tol::data::DBEngine::addEngine(std::make_unique<tol::data::sqlite::SqliteEngine>());
    tol::shell::frmTOLMAIN mainWindow;
    tol::addWindows(mainWindow);
    tol::forms::guarded([&] { mainWindow.load(); });
    return tol::forms::Application::exec();
}
