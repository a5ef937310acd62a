// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/UpdateView.h"
#include "tolctl/ProgressLine.h"
#include "tolctl/RepeatedErrors.h"

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tol::ctl {

/// A run of the update as the terminal shows it: one progress line, and a call for each row of the log.
class TerminalView : public update::UpdateView {
  public:
    using ShowActivity = std::function<void(const update::Activity&, const update::ActivityRow&)>;
    TerminalView(ProgressLine& progress, ShowActivity activity)
        : m_progress(progress), m_activity(std::move(activity)) {}

    /// Told of every question before it is asked.
    void onQuestion(std::function<void(const update::Question&)> tell) { m_question = std::move(tell); }
    /// Called when the same error has come so often that the database in work had better be left.
    void onRepeatedError(std::function<void()> leave) { m_leave = std::move(leave); }

    void showState(update::RunState /*state*/) override {}
    void showTagged(int /*index*/) override {}
    void showLabel(update::RunLabel label, const std::string& text) override;
    void showRecordLabels(bool visible) override;
    void resetActivity() override {}
    void showActivity(const update::Activity& activity, const update::ActivityRow& row) override {
        m_activity(activity, row);
    }
    void fillActivity() override {}
    bool ask(const update::Question& question) override;
    void showNote(const update::DefinitionNote& note) override;
    void showError(const update::ReportedError& error) override;
    void showLeft(const update::LeftDatabase& database) override;
    void showMissing(const update::MissingFolder& folder) override;

    /// Each once.
    [[nodiscard]] const std::vector<update::DefinitionNote>& notes() const { return m_notes; }
    [[nodiscard]] const std::vector<update::LeftDatabase>& left() const { return m_left; }
    /// Each once.
    [[nodiscard]] const std::vector<update::MissingFolder>& missing() const { return m_missing; }

  private:
    [[nodiscard]] std::string line() const;
    [[nodiscard]] std::string_view label(update::RunLabel label) const;

    ProgressLine& m_progress;
    ShowActivity m_activity;
    std::function<void(const update::Question&)> m_question = [](const update::Question&) {};
    std::function<void()> m_leave = [] {};
    std::array<std::string, 6> m_labels;
    bool m_recordLabels = false;
    std::vector<update::DefinitionNote> m_notes;
    RepeatedErrors m_errors;
    std::vector<update::LeftDatabase> m_left;
    std::vector<update::MissingFolder> m_missing;
};

/// A refresh as the terminal shows it.
class TerminalRefreshView : public update::RefreshView {
  public:
    explicit TerminalRefreshView(ProgressLine& progress) : m_progress(progress) {}

    void showLabel(update::RefreshLabel label, const std::string& text) override;
    void enableCancel() override {}

  private:
    [[nodiscard]] std::string_view label(update::RefreshLabel label) const;

    ProgressLine& m_progress;
    std::array<std::string, 5> m_labels;
};

} // namespace tol::ctl
