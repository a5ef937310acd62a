// SPDX-License-Identifier: MIT
#include "tolctl/Program.h"

#include "data/DBEngine.h"
#include "data/sqlite/SqliteEngine.h"
#include "runtime/DeferredErrors.h"
#include "runtime/Host.h"
#include "runtime/RuntimeError.h"
#include "tolctl/Interrupt.h"
#include "tolctl/Output.h"

#include <filesystem>
#include <iostream>

namespace tol::ctl {
namespace {

constexpr const char* purpose =
    "Keeps the databases of Job Sites in order: the companion of the windowed program for terminal and\n"
    "scheduler. Data goes to standard output, talk to standard error.";

constexpr const char* closing =
    "Exit status: 0 finished; 1 could not start; 2 wrong usage; 3 finished, but a database stayed\n"
    "incomplete, a folder is missing or an error box was shown; 4 stopped; 5 rights differ\n"
    "from a template, or something is amiss in them.\n"
    "Drive letters in the data are folders: those in $TOL_DRIVES, else in \"drives\" of the current folder,\n"
    "else in tolvane/drives of the user's data folder.";

/// In the order of the help.
constexpr CommandFactory* commands[] = {updateCommand,      refreshCommand,  logCommand,    dumpCommand,
                                        loadCommand,        compactCommand,  rightsCommand, locksCommand,
                                        itemsUpdateCommand, settingsCommand, demoCommand};

void tell(const std::string& text) {
    std::cerr << "tolctl: " << text << "\n";
}

ExitStatus tellFailure(const Failure& failure) {
    tell(failure.text);
    return failure.status;
}

ExitStatus tellError(const runtime::RuntimeError& error) {
    tell(error.description() + " (error " + std::to_string(error.number()) + ")");
    if (!error.engineText().empty())
        std::cerr << "  " << error.engineText() << "\n";
    return ExitStatus::CouldNotStart;
}

} // namespace

Program::Program() : m_app(purpose, "tolctl") {
    m_app.set_version_flag("--version", "tolctl " TOL_VERSION);
    m_app.add_option("--dir", m_folder, "Work in this folder instead of the current one")->type_name("DIR");
    m_app.require_subcommand(1);
    m_app.fallthrough();
    m_app.footer(closing);
    for (CommandFactory* make : commands)
        m_commands.push_back(make(m_app));
}

// What a handle could not store as it went away is told behind all else.
ExitStatus Program::run(int count, const char* const* words) {
    ExitStatus status = attempt([&] {
        m_app.parse(count, words);
        return runChosen();
    });
    while (runtime::anyDeferred())
        status = attempt([]() -> ExitStatus {
            runtime::raiseDeferred();
            return ExitStatus::CouldNotStart;
        });
    return status;
}

template <typename Work>
ExitStatus Program::attempt(Work&& work) {
    try {
        return work();
    } catch (const CLI::Success& asked) {
        m_app.exit(asked);
        return finishOutput() ? ExitStatus::Finished : ExitStatus::CouldNotStart;
    } catch (const CLI::ParseError& error) {
        tellUsage(error);
        return ExitStatus::WrongUsage;
    } catch (const Failure& failure) {
        return tellFailure(failure);
    } catch (const runtime::RuntimeError& error) {
        // A read that a signal broke off looks like the end of the text.
        return interrupted() ? tellFailure(stopped()) : tellError(error);
    } catch (const std::exception& error) {
        return tellFailure({ExitStatus::CouldNotStart, error.what()});
    }
}

/// A word in the command's place that is none is named: the parser itself only misses the command.
void Program::tellUsage(const CLI::ParseError& error) const {
    const CLI::App* chosen = &m_app;
    while (!chosen->get_subcommands().empty())
        chosen = chosen->get_subcommands().front();
    const std::vector<std::string> unknown = m_app.remaining(true);
    if (chosen->get_require_subcommand_min() > 0 && !unknown.empty())
        tell("there is no command or option \"" + unknown.front() + "\"; see tolctl --help.");
    else
        m_app.exit(error);
}

ExitStatus Program::runChosen() {
    enterFolder();
    data::DBEngine::addEngine(std::make_unique<data::sqlite::SqliteEngine>());
    watchInterrupts();
    for (const auto& command : m_commands)
        if (command->chosen()) {
            const ExitStatus status = command->execute();
            runtime::flush();
            return status;
        }
    return ExitStatus::WrongUsage;
}

void Program::enterFolder() const {
    std::error_code error;
    if (!m_folder.empty())
        std::filesystem::current_path(m_folder, error);
    if (error)
        throw runtime::RuntimeError(runtime::errPathNotFound,
                                    "The folder '" + m_folder + "' can't be entered.", error.message());
}

} // namespace tol::ctl
