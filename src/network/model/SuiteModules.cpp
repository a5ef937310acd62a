// SPDX-License-Identifier: MIT
#include "network/model/SuiteModules.h"

#include <algorithm>
#include <iterator>

namespace tol::network {
namespace {

constexpr SuiteModule modules[] = {
    {"ORV", "Orvane Module", "ORVPATH.MDB"},  {"SNT", "Sennet Intake Module", "SNTPATH.MDB"},
    {"BRL", "Brimel Module", "BRLPATH.MDB"},  {"CLD", "Calder Module", "ORVPATH.MDB"}, // shares it
    {"PLN", "Pellin Module", "PLNPATH.MDB"},  {"TRS", "Tirsa Module", ""},
    {"NET", "Tolvane Module", "NETPATH.MDB"},
};
constexpr SuiteModule unknown{"", "????", "   "};

} // namespace

const SuiteModule& suiteModule(std::string_view code) {
    const auto* found = std::ranges::find(modules, code, &SuiteModule::code);
    return found == std::end(modules) ? unknown : *found;
}

} // namespace tol::network
