// SPDX-License-Identifier: MIT
#include "rights/model/CopyUAIList.h"
#include "runtime/RuntimeError.h"
#include "tolctl/Command.h"
#include "tolctl/JsonReport.h"
#include "tolctl/Output.h"
#include "tolctl/rights/RightsDatabase.h"

#include <fmt/format.h>

#include <iostream>

namespace tol::ctl {
namespace {

constexpr const char* closing =
    "The modules and User Access Items of the network database are replaced by those of ZOVDEF.MDB in the\n"
    "current folder, with their tags. Nothing is merged: an item that was added by hand is gone afterwards.\n"
    "An update that was broken off is made good by the next one.";

/// tolctl items-update: brings the delivered list of User Access Items to the network database.
class ItemsUpdateCommand : public Command {
  public:
    explicit ItemsUpdateCommand(CLI::App& program);
    ExitStatus execute() override;

  private:
    void report(const rights::CopiedList& copied) const;

    bool m_json = false;
};

ItemsUpdateCommand::ItemsUpdateCommand(CLI::App& program)
    : Command(program, "items-update", "Replace the User Access Items by the delivered ones") {
    app().add_flag("--json", m_json, "Print the outcome as JSON");
    app().footer(closing);
}

rights::CopiedList copyList(rights::UAIListCopy& copy) {
    try {
        return copy.run();
    } catch (const runtime::RuntimeError& error) {
        throw Failure{ExitStatus::NeedsAttention,
                      fmt::format("{} (error {})\nNot all User Access Items were Transfered.",
                                  error.description(), error.number())};
    }
}

ExitStatus ItemsUpdateCommand::execute() {
    outliveReader();
    rights::UAIListCopy copy(networkFile());
    report(copyList(copy));
    return finishOutput() ? ExitStatus::Finished : ExitStatus::NeedsAttention;
}

void ItemsUpdateCommand::report(const rights::CopiedList& copied) const {
    if (m_json)
        std::cout << fmt::format("{{\"result\": \"Finished\",\n \"counts\": {{\"MODULES\": {}, "
                                 "\"USERACCESSITEMS\": {}}}}}\n",
                                 copied.modules, copied.items);
    else
        std::cerr << fmt::format("Finished. List of User Access Items Updated.\n  MODULES: {} rows\n"
                                 "  USERACCESSITEMS: {} rows\n",
                                 copied.modules, copied.items);
}

} // namespace

std::unique_ptr<Command> itemsUpdateCommand(CLI::App& program) {
    return std::make_unique<ItemsUpdateCommand>(program);
}

} // namespace tol::ctl
