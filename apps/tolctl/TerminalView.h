// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/UpdateView.h"
#include "tolctl/ProgressLine.h"

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

    void showState(update::RunState /*state*/) override {}
    void showTagged(int /*index*/) override {}
    void showLabel(update::RunLabel label, const std::string& text) override;
    void showRecordLabels(bool visible) override;
    void resetActivity() override {}
    void showActivity(const update::ActivityRow& row) override { m_activity(row); }
    void fillActivity() override {}
    void showNote(const update::DefinitionNote& note) override;

    [[nodiscard]] const std::string& label(update::RunLabel label) const {
        return m_labels[static_cast<std::size_t>(label)];
    }
    /// Each once.
    [[nodiscard]] const std::vector<update::DefinitionNote>& notes() const { return m_notes; }
    /// Names the table in work, differently for each visit of a database.
    [[nodiscard]] std::string place() const;

  private:
    [[nodiscard]] std::string line() const;

    ProgressLine& m_progress;
    std::function<void(const update::ActivityRow&)> m_activity;
    std::array<std::string, 6> m_labels;
    bool m_recordLabels = false;
    std::vector<update::DefinitionNote> m_notes;
    long m_visits = 0;
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
    [[nodiscard]] std::string place() const { return std::to_string(m_visits); }

  private:
    ProgressLine& m_progress;
    std::array<std::string, 5> m_labels;
    long m_visits = 0;
};

} // namespace tol::ctl
