// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/UpdateView.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace tol::test {

/// An update's view that remembers what it was shown.
class RecordingView : public update::UpdateView {
  public:
    void showState(update::RunState state) override { states.push_back(state); }
    void showTagged(int index) override { tagged.push_back(index); }
    void showLabel(update::RunLabel label, const std::string& text) override {
        labels[label] = text;
        history[label].push_back(text);
    }
    void showRecordLabels(bool visible) override { recordLabels = visible; }
    void resetActivity() override { activity.clear(); }
    void showActivity(const update::Activity& fact, const update::ActivityRow& row) override {
        activity.push_back(row);
        if (onActivity)
            onActivity(fact);
    }
    void fillActivity() override { ++fills; }
    void showNote(const update::DefinitionNote& note) override { notes.push_back(note); }
    void showError(const update::ReportedError& error) override { errors.push_back(error); }
    void showLeft(const update::LeftDatabase& database) override { left.push_back(database); }
    void showMissing(const update::MissingFolder& folder) override { missing.push_back(folder); }

    std::vector<update::RunState> states;
    std::vector<int> tagged;
    std::map<update::RunLabel, std::string> labels;
    std::map<update::RunLabel, std::vector<std::string>> history;
    bool recordLabels = false;
    std::vector<update::ActivityRow> activity;
    int fills = 0;
    std::vector<update::DefinitionNote> notes;
    std::vector<update::ReportedError> errors;
    std::vector<update::LeftDatabase> left;
    std::vector<update::MissingFolder> missing;
    std::function<void(const update::Activity&)> onActivity;
};

} // namespace tol::test
