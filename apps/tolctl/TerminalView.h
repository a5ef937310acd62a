// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/UpdateView.h"
#include "tolctl/ProgressLine.h"
#include "tolctl/RepeatedErrors.h"

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace tol::ctl {

/// A run of the update as the terminal shows it: one progress line, and a call for each row of the log.
class TerminalView : public update::UpdateView {
  public:
    TerminalView(ProgressLine& progress, std::function<void(const update::ActivityRow&)> activity)
        : m_progress(progress), m_activity(std::move(activity)) {}

    /// Called when the same error has come so often that the database in work had better be left.
    void onRepeatedError(std::function<void()> leave) { m_leave = std::move(leave); }

    void showState(update::RunState /*state*/) override {}
    void showTagged(int /*index*/) override {}
    void showLabel(update::RunLabel label, const std::string& text) override;
    void showRecordLabels(bool visible) override;
    void resetActivity() override {}
    void showActivity(const update::ActivityRow& row) override { m_activity(row); }
    void fillActivity() override {}
    void showNote(const update::DefinitionNote& note) override;
    void showError(const update::ReportedError& error) override;
    void showLeft(const update::LeftDatabase& database) override;
    void showMissing(const update::MissingFolder& folder) override;

    [[nodiscard]] const std::string& label(update::RunLabel label) const {
        return m_labels[static_cast<std::size_t>(label)];
    }
    /// Each once.
    [[nodiscard]] const std::vector<update::DefinitionNote>& notes() const { return m_notes; }
    [[nodiscard]] const std::vector<update::LeftDatabase>& left() const { return m_left; }
    /// Each once.
    [[nodiscard]] const std::vector<update::MissingFolder>& missing() const { return m_missing; }

  private:
    [[nodiscard]] std::string line() const;

    ProgressLine& m_progress;
    std::function<void(const update::ActivityRow&)> m_activity;
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

    [[nodiscard]] const std::string& label(update::RefreshLabel label) const {
        return m_labels[static_cast<std::size_t>(label)];
    }

  private:
    ProgressLine& m_progress;
    std::array<std::string, 5> m_labels;
};

} // namespace tol::ctl
