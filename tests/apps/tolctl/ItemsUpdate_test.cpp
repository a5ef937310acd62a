// SPDX-License-Identifier: MIT
#include "rights/RightsCase.h"
#include "support/DeliveredLists.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace tol::test {
namespace {

using namespace nlohmann::literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class ItemsUpdate : public testing::Test {
  protected:
    ItemsUpdate() {
        delivered.modules.add({{"PAY", "Payroll"}});
        delivered.items.add({{17, "PAY", "RUN", "Run it", "FRMRUN"}, {18, "PAY", "STOP", "Stop it", ""}});
        network.modules.add({{"OLD", "Gone"}});
        network.accessItems.add({{90, "OLD", "HAND", "By hand", ""}});
    }

  private:
    EngineForTests m_engine;

  protected:
    CaseFolder m_case;
    NetworkTables network;
    DeliveredLists delivered;
};

TEST_F(ItemsUpdate, ReplacesTheLists) {
    const Outcome outcome = m_case.run({"items-update"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, IsEmpty());
    EXPECT_EQ(outcome.err, "Finished. List of User Access Items Updated.\n"
                           "  MODULES: 1 rows\n  USERACCESSITEMS: 2 rows\n");
    EXPECT_THAT(network.modules.rows(), ElementsAre("PAY|Payroll"));
    EXPECT_THAT(network.accessItems.rows(), ElementsAre("17|PAY|RUN|Run it|FRMRUN", "18|PAY|STOP|Stop it|"));
}

TEST_F(ItemsUpdate, ReportsAsJson) {
    const Outcome outcome = m_case.run({"items-update", "--json"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.err, IsEmpty());
    EXPECT_EQ(outcome.json(),
              R"({"result": "Finished", "counts": {"MODULES": 1, "USERACCESSITEMS": 2}})"_json);
}

TEST_F(ItemsUpdate, WithoutADeliveryNothingIsDeleted) {
    std::filesystem::remove("ZOVDEF.MDB");
    const Outcome outcome = m_case.run({"items-update", "--json"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.out, IsEmpty());
    EXPECT_THAT(outcome.err, HasSubstr("ZOVDEF.MDB'. (error 3024)"));
    EXPECT_THAT(network.modules.rows(), ElementsAre("OLD|Gone"));
}

TEST_F(ItemsUpdate, WithoutANetworkDatabaseItCanNotStart) {
    std::filesystem::remove("ZOVNET.MDB");
    const Outcome outcome = m_case.run({"items-update"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, HasSubstr("tolctl: there is no network database.\n"));
}

TEST_F(ItemsUpdate, AFailureInTheMiddleIsStatusThreeAndTheNextMakesItGood) {
    delivered.items.add({{19, "PAY", "TOOLONG99", "Long", ""}});
    const Outcome torn = m_case.run({"items-update", "--json"});
    EXPECT_EQ(torn.status, 3);
    EXPECT_THAT(torn.out, IsEmpty());
    EXPECT_THAT(torn.err, StartsWith("tolctl: "));
    EXPECT_THAT(torn.err, HasSubstr("(error 3163)\nNot all User Access Items were Transfered.\n"));
    delivered.items.change("UAICODE", "TOOLONG99", "LONG");
    EXPECT_EQ(m_case.run({"items-update"}).status, 0);
    EXPECT_EQ(network.accessItems.rows().size(), 3U);
}

} // namespace
} // namespace tol::test
