// SPDX-License-Identifier: MIT
#include "network/model/SuiteModules.h"

#include <gtest/gtest.h>

namespace tol::test {
namespace {

TEST(SuiteModules, EachCodeHasItsNameAndPathFile) {
    const network::SuiteModule wanted[] = {
        {"ORV", "Orvane Module", "ORVPATH.MDB"},
        {"SNT", "Sennet Intake Module", "SNTPATH.MDB"},
        {"BRL", "Brimel Module", "BRLPATH.MDB"},
        {"CLD", "Calder Module", "ORVPATH.MDB"},
        {"PLN", "Pellin Module", "PLNPATH.MDB"},
        {"TRS", "Tirsa Module", ""},
        {"NET", "Tolvane Module", "NETPATH.MDB"},
        {"XYZ", "????", "   "},
        {"", "????", "   "},
        {"net", "????", "   "},
    };
    for (const network::SuiteModule& module : wanted) {
        EXPECT_EQ(network::suiteModule(module.code).name, module.name);
        EXPECT_EQ(network::suiteModule(module.code).pathFile, module.pathFile);
    }
}

} // namespace
} // namespace tol::test
