// SPDX-License-Identifier: MIT
// The start of the window program in the demo, until its main window can be used, against a program that
// shows an empty main window with the same menu. Both are whole processes: this program starts itself. The
// second that the splash stands is left out, its making is not. Usage: bench_start [pairs]

#include "Ratio.h"
#include "WideTable.h"
#include "data/DBEngine.h"
#include "data/sqlite/SqliteEngine.h"
#include "demo/Demo.h"
#include "forms/events/Application.h"
#include "forms/events/WindowHost.h"
#include "shell/MainMenu.h"
#include "shell/frmTOLMAIN.h"
#include "tol/Windows.h"

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QProcess>

#include <cstdlib>
#include <filesystem>
#include <string_view>

using namespace tol;
using namespace tol::bench;

namespace {

int startProgram() {
    const forms::Application application("Tolvane Module");
    const forms::WindowHost host;
    data::DBEngine::addEngine(std::make_unique<data::sqlite::SqliteEngine>());
    shell::frmTOLMAIN mainWindow;
    addWindows(mainWindow);
    mainWindow.load();
    mainWindow.show();
    QCoreApplication::processEvents();
    return mainWindow.sNetPath.empty() ? EXIT_FAILURE : EXIT_SUCCESS;
}

int startBare(int& count, char** arguments) {
    const QApplication application(count, arguments);
    QMainWindow window;
    for (const shell::Menu& menu : shell::mainMenu()) {
        QMenu& made = *window.menuBar()->addMenu(QString::fromUtf8(menu.caption));
        for (const shell::MenuItem& item : menu.items)
            made.addAction(QString::fromUtf8(item.caption));
    }
    window.resize(799, 606);
    window.show();
    QCoreApplication::processEvents();
    return EXIT_SUCCESS;
}

void startItself(const QString& program, const QString& which) {
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice()); // where the platform without a display complains
    process.start(program, {which});
    if (!process.waitForFinished() || process.exitCode() != EXIT_SUCCESS)
        std::exit(EXIT_FAILURE);
}

} // namespace

int main(int count, char** arguments) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    const std::string_view which = count > 1 ? arguments[1] : "";
    if (which == "--tol")
        return startProgram();
    if (which == "--bare")
        return startBare(count, arguments);

    const auto itself = QString::fromStdString(std::filesystem::absolute(arguments[0]).string());
    const BenchFolder folder;
    data::DBEngine::addEngine(std::make_unique<data::sqlite::SqliteEngine>());
    demo::makeDemo("demo");
    std::filesystem::current_path("demo");
    ratio(
        "the start: program, bare window", count > 1 ? std::atoi(arguments[1]) : 15,
        [&] { startItself(itself, "--tol"); }, [&] { startItself(itself, "--bare"); });
}
