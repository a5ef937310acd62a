// SPDX-License-Identifier: MIT
// A run of the demo in its window, from opening the window to closing it, against the same run by tolctl's
// own code in this process; each on a fresh copy. Questions are answered Yes. Usage: bench_window [pairs]

#include "Quiet.h"
#include "Ratio.h"
#include "WideTable.h"
#include "data/DBEngine.h"
#include "data/sqlite/SqliteEngine.h"
#include "definition_update/windows/frmDBUDDU.h"
#include "demo/Demo.h"
#include "forms/events/Application.h"
#include "forms/events/WindowHost.h"
#include "forms/windows/MdiForm.h"
#include "runtime/Host.h"
#include "tolctl/Program.h"

#include <QAbstractButton>
#include <QLabel>

#include <array>
#include <cstdlib>
#include <filesystem>

using namespace tol;
using namespace tol::bench;
namespace fs = std::filesystem;

namespace {

/// The window program's host, but for a person who answers Yes before a box is drawn. As with tolctl's
/// options nobody waits, so that neither run stores anything at a question.
class AgreeingHost : public forms::WindowHost {
  protected:
    [[nodiscard]] bool waitsForAnswer(runtime::MsgStyle) const override { return false; }
    runtime::MsgResult showMsgBox(const std::string&, runtime::MsgStyle style, const std::string&) override {
        return style.buttons == runtime::MsgButtons::YesNo ? runtime::MsgResult::Yes : runtime::MsgResult::Ok;
    }
};

void press(const QWidget& window, const char* button) {
    window.findChild<QAbstractButton*>(button)->click();
}

std::string runInWindow(forms::MdiForm& main) {
    auto made = std::make_unique<update::frmDBUDDU>();
    const update::frmDBUDDU& window = *made;
    main.showChild(std::move(made));
    press(window, "cmdTAGALL");
    press(window, "cmdCancel");
    std::string outcome = window.findChild<QLabel*>("lblNPPATHNAME")->text().toStdString();
    press(window, "cmdExit");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return outcome;
}

void runInTerminal() {
    const std::array<const char*, 5> words{"tolctl", "update", "--all", "--on-unconvertible", "continue"};
    const Quiet quiet;
    ctl::Program().run(static_cast<int>(words.size()), words.data());
}

/// Goes on to the next copy.
void enterCopy(const fs::path& folder, int& number) {
    fs::current_path(folder / fmt::format("copy{}", number++));
}

} // namespace

int main(int count, char** arguments) {
    const int pairs = count > 1 ? std::atoi(arguments[1]) : 7;
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    const forms::Application application("bench");
    const BenchFolder folder;
    const fs::path copies = fs::current_path();
    data::DBEngine::addEngine(std::make_unique<data::sqlite::SqliteEngine>());
    demo::makeDemo("demo");
    for (int copy = 0; copy < 2 * (pairs + 1); ++copy)
        fs::copy("demo", fmt::format("copy{}", copy), fs::copy_options::recursive);

    const AgreeingHost host;
    forms::MdiForm main("frmTOLMAIN");
    main.setSize(11985, 9090);
    main.load();
    main.show();
    int next = 0;
    std::string outcome;
    ratio(
        "a run of the demo: window, tolctl", pairs,
        [&] {
            enterCopy(copies, next);
            outcome = runInWindow(main);
        },
        [&] {
            enterCopy(copies, next);
            runInTerminal();
        });
    fmt::print("The last run in the window: {}.\n", outcome);
    fs::current_path(copies);
    return outcome == "Finished" ? EXIT_SUCCESS : EXIT_FAILURE;
}
