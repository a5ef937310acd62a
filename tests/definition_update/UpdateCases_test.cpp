// SPDX-License-Identifier: MIT
// Every file of the folder "cases" is a test: databases before, the wanted definition, and for one or more
// runs what the operator does and what he, the log and the databases must show then.
#include "UpdateWorld.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

namespace tol::test {
namespace {

namespace fs = std::filesystem;
using runtime::MsgResult;

std::vector<std::string> caseNames() {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(TOL_CASES_FOLDER))
        if (entry.path().extension() == ".json")
            names.push_back(entry.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
}

Json readCase(const std::string& name) {
    std::ifstream file(fs::path(TOL_CASES_FOLDER) / (name + ".json"));
    return Json::parse(file);
}

// Tables, indexes and files have no order that counts; lists have one.
nlohmann::json unordered(const Json& json) {
    return nlohmann::json::parse(json.dump());
}

std::string listed(const Json& rows) {
    std::string text;
    for (const Json& row : rows)
        text += "\n  " + row.dump();
    return text;
}

void expectList(const Json& expected, const Json& actual, const std::string& what) {
    EXPECT_TRUE(expected == actual) << what << " expected:" << listed(expected) << "\n"
                                    << what << " actual:" << listed(actual);
}

/// Recordsets that someone else holds open while a run goes on.
class Holders {
  public:
    explicit Holders(const UpdateWorld& world, const Json& tables) {
        for (const Json& table : tables) {
            m_workspaces.push_back(data::DBEngine::CreateWorkspace("wksOTHER"));
            const std::string file = (world.folder.path() / table.at(0).get<std::string>()).string();
            m_databases.push_back(m_workspaces.back().OpenDatabase(file));
            m_recordsets.push_back(m_databases.back().OpenRecordset(table.at(1).get<std::string>()));
        }
    }

  private:
    std::vector<data::Workspace> m_workspaces;
    std::vector<data::Database> m_databases;
    std::vector<data::Recordset> m_recordsets;
};

void playAnswers(UpdateWorld& world, const Json& answers) {
    world.host.boxes.clear();
    world.host.answers.clear();
    for (const Json& answer : answers)
        world.host.answers.push_back(answer == "Yes" ? MsgResult::Yes : MsgResult::No);
}

// Case files write the working folder as $FOLDER.
std::string withoutFolder(const UpdateWorld& world, std::string text) {
    const std::string folder = world.folder.path().string();
    for (auto at = text.find(folder); at != std::string::npos; at = text.find(folder))
        text.replace(at, folder.size(), "$FOLDER");
    return text;
}

Json boxesShown(const UpdateWorld& world) {
    Json boxes = Json::array();
    for (const Box& box : world.host.boxes)
        boxes.push_back(Json::array({box.title, withoutFolder(world, box.text)}));
    return boxes;
}

/// For texts that no case can foresee in full.
void expectParts(const Json& parts, const Json& boxes) {
    ASSERT_EQ(boxes.size(), parts.size()) << listed(boxes);
    for (std::size_t place = 0; place < parts.size(); ++place)
        EXPECT_NE(boxes[place].at(1).get<std::string>().find(parts[place].get<std::string>()),
                  std::string::npos)
            << boxes[place].dump();
}

void checkLabels(const RecordingView& view, const Json& labels) {
    using update::RunLabel;
    const std::map<std::string, RunLabel> names{{"NPPATHNAME", RunLabel::NPPATHNAME},
                                                {"NPPATHTEXT", RunLabel::NPPATHTEXT},
                                                {"NPDBNAME", RunLabel::NPDBNAME},
                                                {"NP2", RunLabel::NP2},
                                                {"NP4", RunLabel::NP4},
                                                {"NP6", RunLabel::NP6}};
    for (const auto& [name, text] : labels.items())
        EXPECT_EQ(view.labels.at(names.at(name)), text.get<std::string>()) << name;
}

void checkFiles(const UpdateWorld& world, const Json& after) {
    for (const auto& [name, tables] : after.items()) {
        const nlohmann::json expected = unordered(completed(tables));
        const nlohmann::json actual = unordered(readDatabase((world.folder.path() / name).string()));
        EXPECT_TRUE(expected == actual)
            << name << ": change from expected to actual\n"
            << nlohmann::json::diff(expected, actual).dump(1) << "\nactual " << actual.dump();
    }
}

void checkRun(UpdateWorld& world, const Json& plan) {
    UpdateRun run;
    run.module = plan.value("module", "N");
    run.tagAll = !plan.contains("tagged");
    run.tagged = plan.value("tagged", std::vector<int>{});
    run.currentSite = plan.value("currentSite", -1);
    run.cancelAtYield = plan.value("cancelAtYield", 0);
    run.cancelAfterBox = plan.value("cancelAfterBox", 0);
    playAnswers(world, plan.value("answers", Json::array()));
    {
        const Holders holders(world, plan.value("hold", Json::array()));
        run(world);
    }
    if (plan.contains("boxesContain"))
        expectParts(plan.at("boxesContain"), boxesShown(world));
    else
        expectList(plan.value("boxes", Json::array()), boxesShown(world), "boxes");
    expectList(plan.at("log"), UpdateWorld::activityLog(), "log");
    EXPECT_TRUE(world.host.answers.empty()) << "answers that nobody asked for";
    EXPECT_EQ(run.ended, plan.value("ended", true));
    EXPECT_EQ(run.finished, run.ended && plan.value("finished", true));
    EXPECT_EQ(run.anyIncomplete, plan.value("incomplete", false));
    checkLabels(run.view, plan.value("labels", Json::object()));
    checkFiles(world, plan.value("after", Json::object()));
}

class UpdateCases : public testing::TestWithParam<std::string> {};

TEST_P(UpdateCases, runAsTold) {
    const Json told = readCase(GetParam());
    SCOPED_TRACE(told.at("about").get<std::string>());
    UpdateWorld world;
    for (const char* table : {"DATABASES", "NEWDEF", "NEWINDEXES"})
        UpdateWorld::addRowsOf(table, told.value(table, Json::array()));
    UpdateWorld::addSites(told.at("sites"));
    UpdateWorld::addDefinitions(told.value("wanted", Json::object()));
    const Json files = told.value("files", Json::object());
    for (const auto& [name, content] : files.items())
        world.addFile(name, content);
    int number = 0;
    for (const Json& run : told.at("runs")) {
        SCOPED_TRACE("run " + std::to_string(++number));
        checkRun(world, run);
    }
}

std::string testName(const testing::TestParamInfo<std::string>& test) {
    std::string name = test.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Files, UpdateCases, testing::ValuesIn(caseNames()), testName);

} // namespace
} // namespace tol::test
