// SPDX-License-Identifier: MIT
#include "data/sqlite/SqliteEngine.h"
#include "forms/Application.h"
#include "forms/ErrorGuard.h"
#include "forms/WindowHost.h"
#include "shell/frmTOLMAIN.h"
#include "tol/Windows.h"

// The command line is not read: where things are is told by the databases of the current folder.
int main() {
    const tol::forms::Application application("Tolvane Module");
    const tol::forms::WindowHost host;
    tol::data::sqlite::addSqliteEngine();
    tol::shell::frmTOLMAIN mainWindow;
    tol::addWindows(mainWindow);
    tol::forms::guarded([&] { mainWindow.load(); });
    return tol::forms::Application::exec();
}
