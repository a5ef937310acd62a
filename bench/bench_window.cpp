// SPDX-License-Identifier: MIT
// A run of the demo in its window, from opening the window to closing it, against the same run by tolctl's
// own code in this process; each on a fresh copy. Questions are answered Yes. Usage: bench_window [pairs]

#include "Ratio.h"
#include "WideTable.h"
#include "data/sqlite/SqliteEngine.h"
#include "definition_update/windows/frmDBUDDU.h"
#include "demo/Demo.h"
#include "forms/Application.h"
#include "forms/MdiForm.h"
#include "forms/WindowHost.h"
#include "tolctl/Program.h"

#include <QAbstractButton>
#include <QLabel>

#include <array>
#include <cstdlib>
#include <filesystem>

#include <fcntl.h>
#include <unistd.h>

using namespace tol;
using namespace tol::bench;
namespace fs = std::filesystem;

namespace {

/// The window program's host, but for a person who answers Yes before a box is drawn.
class AgreeingHost : public forms::WindowHost {
  protected:
    runtime::MsgResult showMsgBox(const std::string&, runtime::MsgStyle style, const std::string&) override {
        return style.buttons == runtime::MsgButtons::YesNo ? runtime::MsgResult::Yes : runtime::MsgResult::Ok;
    }
};

/// What this process writes goes nowhere while it lives.
class Quiet {
  public:
    Quiet() {
        std::fflush(nullptr);
        const int nowhere = open("/dev/null", O_WRONLY);
        for (std::size_t stream = 0; stream < m_kept.size(); ++stream) {
            m_kept.at(stream) = dup(static_cast<int>(stream) + 1);
            dup2(nowhere, static_cast<int>(stream) + 1);
        }
        close(nowhere);
    }
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;
    ~Quiet() {
        std::fflush(nullptr);
        for (std::size_t stream = 0; stream < m_kept.size(); ++stream) {
            dup2(m_kept.at(stream), static_cast<int>(stream) + 1);
            close(m_kept.at(stream));
        }
    }

  private:
    std::array<int, 2> m_kept{};
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
    data::sqlite::addSqliteEngine();
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
