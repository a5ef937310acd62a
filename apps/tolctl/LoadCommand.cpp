// SPDX-License-Identifier: MIT
#include "data/json/DatabaseJson.h"
#include "runtime/RuntimeError.h"
#include "tolctl/Command.h"
#include "tolctl/ProgressLine.h"
#include "tolctl/RowReport.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>

namespace tol::ctl {
namespace {

constexpr const char* closing =
    "The JSON is what tolctl dump prints. \"name\" and \"fields\" of a table must stand before its "
    "\"rows\";\n"
    "\"indexes\" and \"rows\" may be left out. A file that exists is never touched, and none is left behind\n"
    "when the text can't be read to its end.";

/// tolctl load: makes a database from JSON.
class LoadCommand : public Command {
  public:
    explicit LoadCommand(CLI::App& program);
    ExitStatus execute() override;

  private:
    std::string m_file;
    std::string m_json;
    ProgressLine m_progress;
};

LoadCommand::LoadCommand(CLI::App& program) : Command(program, "load", "Make a database from JSON") {
    app().add_option("FILE", m_file, "The database to make; it must not exist")->required()->type_name("");
    app().add_option("JSON", m_json, "The text, - for standard input")->required()->type_name("");
    app().footer(closing);
}

ExitStatus LoadCommand::execute() {
    if (m_json == "-") {
        data::json::makeDatabase(m_file, std::cin, rowReport(m_progress));
    } else {
        std::ifstream text(m_json, std::ios::binary);
        if (!text)
            throw runtime::RuntimeError(runtime::errFileNotFound,
                                        "'" + m_json + "' can't be read: " + std::strerror(errno) + ".");
        data::json::makeDatabase(m_file, text, rowReport(m_progress));
    }
    m_progress.clear();
    return ExitStatus::Finished;
}

} // namespace

std::unique_ptr<Command> loadCommand(CLI::App& program) {
    return std::make_unique<LoadCommand>(program);
}

} // namespace tol::ctl
