// SPDX-License-Identifier: MIT
#include "definition_update/engine/DefinitionRefresh.h"
#include "definition_update/engine/DefinitionUpdate.h"
#include "demo_support/DemoFolder.h"
#include "runtime/Conversions.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <set>

namespace tol::test {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;

/// Remembers what a person would have seen at the end.
class LastSeen : public update::UpdateView, public update::RefreshView {
  public:
    std::map<update::RunLabel, std::string> labels;
    std::map<update::RefreshLabel, std::string> refreshLabels;
    std::vector<update::ActivityRow> activity;

    void showState(update::RunState) override {}
    void showTagged(int) override {}
    void showLabel(update::RunLabel label, const std::string& text) override { labels[label] = text; }
    void showLabel(update::RefreshLabel label, const std::string& text) override {
        refreshLabels[label] = text;
    }
    void showRecordLabels(bool) override {}
    void resetActivity() override { activity.clear(); }
    void showActivity(const update::Activity& /*activity*/, const update::ActivityRow& row) override {
        activity.push_back(row);
    }
    void fillActivity() override {}
    void enableCancel() override {}
};

/// One run over all Job Sites; answers every question with Yes.
LastSeen updateAll(DemoFolder& demo) {
    demo.host.boxes.clear();
    LastSeen view;
    update::DefinitionUpdate run(view);
    auto place = run.tagList().begin();
    forEachRow("DBPATHS.MDB", "DBPATHS", [&](const data::Recordset& row) {
        *place++ = {runtime::toLong(row.Fields("DBTAG").Value()), text(row, "PATHNAME"),
                    text(row, "PathText")};
    });
    run.ProcessTaggedItems(" ");
    EXPECT_EQ(run.outcome(), update::RunOutcome::Finished);
    EXPECT_FALSE(run.anyIncomplete());
    return view;
}

std::set<std::string> titles(const DemoFolder& demo) {
    std::set<std::string> all;
    for (const Box& box : demo.host.boxes)
        all.insert(box.title);
    return all;
}

std::set<std::string> actions(const LastSeen& view) {
    std::set<std::string> all;
    for (const update::ActivityRow& row : view.activity)
        all.insert(row.Action);
    return all;
}

void expectWanted(const DemoFolder& demo) {
    for (const auto& [file, database] : demo.targets())
        EXPECT_THAT(differences(definitionsOf(file), demo.wanted(database)), IsEmpty()) << file;
}

TEST(DemoUpdate, OneRunBringsEverySiteUpToDate) {
    DemoFolder demo;
    std::map<std::pair<std::string, std::string>, std::int64_t> rows;
    for (const auto& [file, database] : demo.targets()) {
        const Definitions wanted = demo.wanted(database);
        for (const auto& [table, definition] : definitionsOf(file)) {
            if (wanted.contains(table))
                rows[{file, table}] = rowCount(file, table);
        }
    }

    const LastSeen first = updateAll(demo);
    EXPECT_EQ(first.labels.at(update::RunLabel::NPPATHNAME), "Finished");
    EXPECT_THAT(titles(demo), testing::UnorderedElementsAre("Data Will Be Lost", "Continue Warning?"))
        << "questions, and no error";
    expectWanted(demo);
    for (const auto& [place, count] : rows)
        EXPECT_EQ(rowCount(place.first, place.second), count) << place.first << " " << place.second;
    for (const std::string action :
         {"Added New Table.", "Added Field.", "Added New Field", "Changed Field Type.  ",
          "Changed Field Type. DATA MAY BE LOST", "Changed Field Size.  ",
          "Changed Field Size. Some Data may be lost.", "Removed Old Field.", "Table: TCHOLD Removed.",
          "Created New Index.", "Changed Index Keys.", "Added Field to Index Key.", "Index Removed."})
        EXPECT_THAT(actions(first), Contains(action));
    EXPECT_THAT(actions(first), testing::Not(Contains(HasSubstr("Cannot"))));

    const LastSeen second = updateAll(demo);
    EXPECT_EQ(second.labels.at(update::RunLabel::NPPATHNAME), "Finished");
    EXPECT_THAT(demo.host.boxes, IsEmpty());
    EXPECT_THAT(actions(second), testing::ElementsAre("Database Ok. No Changes Made."));
    expectWanted(demo);
}

std::multiset<std::vector<std::string>> tableRows(const std::string& table) {
    std::multiset<std::vector<std::string>> rows;
    forEachRow("ZOVDEF.MDB", table, [&](const data::Recordset& row) {
        std::vector<std::string> values;
        for (int i = 0; i < row.Fields().Count(); ++i)
            values.push_back(text(row, row.Fields(i).Name()));
        rows.insert(values);
    });
    return rows;
}

/// The network location as the programs hand it on, and none, which stands for the current folder.
class DemoRefresh : public testing::TestWithParam<std::string> {};

TEST_P(DemoRefresh, GivesExactlyTheFilledDefinition) {
    const DemoFolder demo;
    std::map<std::string, std::multiset<std::vector<std::string>>> before;
    const std::vector<std::string> tables{"NEWDEF", "NEWINDEXES", "MODULES", "USERACCESSITEMS"};
    for (const std::string& table : tables)
        before[table] = tableRows(table);

    LastSeen view;
    EXPECT_EQ(update::DefinitionRefresh(view, GetParam()).RefreshDefinitions(),
              update::RefreshOutcome::Finished);
    EXPECT_EQ(view.refreshLabels.at(update::RefreshLabel::DBNAME), "Finished");
    EXPECT_THAT(demo.host.texts(), IsEmpty());
    for (const std::string& table : tables)
        EXPECT_EQ(tableRows(table), before[table]) << table;
}

INSTANTIATE_TEST_SUITE_P(Locations, DemoRefresh, testing::Values(R"(S:\NET)", " "),
                         [](const auto& location) { return location.param == " " ? "Current" : "Network"; });

} // namespace
} // namespace tol::test
