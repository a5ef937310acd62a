// SPDX-License-Identifier: MIT
#include "rights/model/DeleteRows.h"

#include "data/OpenTable.h"
#include "runtime/RuntimeError.h"
#include "support/NetworkTables.h"
#include "support/StartFolder.h"
#include "support/TestHost.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using testing::ElementsAre;

class DeleteRows : public testing::Test {
  protected:
    DeleteRows() {
        net.rights.add({{1, 10, true, 5}, {1, 11, true, 6}, {2, 10, true, 5}, {1, 12, false, 5}});
    }
    void deleteRightsOf(std::int32_t user) {
        rights::deleteRows(open.rows, "USERRIGHTS", {{user, open.rows.Fields("USERTAG")}});
    }

    StartFolder folder;
    TestHost person;
    NetworkTables net;
    data::OpenTable open{"wksNET", NetworkTables::file, "USERRIGHTS"};
};

TEST_F(DeleteRows, DeletesThoseWithTheKeyAndNoOthers) {
    deleteRightsOf(1);
    EXPECT_THAT(net.rights.rows(), ElementsAre("2|10|True|5"));
    EXPECT_EQ(person.yields, 3) << "one for each row";
}

TEST_F(DeleteRows, MayBeToldSeveralKeys) {
    rights::deleteRows(open.rows, "URTTAG",
                       {{1, open.rows.Fields("USERTAG")}, {5, open.rows.Fields("URTTAG")}});
    EXPECT_THAT(net.rights.rows(), ElementsAre("1|11|True|6", "2|10|True|5"));
}

TEST_F(DeleteRows, WhereThereAreNoneNothingIsDone) {
    deleteRightsOf(3);
    EXPECT_EQ(net.rights.rows().size(), 4U);
    EXPECT_EQ(person.yields, 0);
}

TEST_F(DeleteRows, OthersMayDeleteAndAddAtAYield) {
    person.onYield = [&] {
        if (person.yields != 1)
            return;
        net.rights.remove("UAITAG", 11);
        net.rights.add({{1, 9, true, 0}});
    };
    deleteRightsOf(1);
    EXPECT_THAT(net.rights.rows(), ElementsAre("2|10|True|5"));
}

TEST_F(DeleteRows, WhatWasBrokenOffIsDeletedByTheSameAgain) {
    person.onYield = [] { runtime::raise(runtime::errDiskOrNetwork, {"ZOVNET.MDB"}); };
    EXPECT_THROW(deleteRightsOf(1), runtime::RuntimeError);
    EXPECT_THAT(net.rights.rows(), ElementsAre("1|11|True|6", "1|12|False|5", "2|10|True|5"));
    person.onYield = {};
    deleteRightsOf(1);
    EXPECT_THAT(net.rights.rows(), ElementsAre("2|10|True|5"));
}

} // namespace
} // namespace tol::test
