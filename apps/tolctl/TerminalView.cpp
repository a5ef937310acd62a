// SPDX-License-Identifier: MIT
#include "tolctl/TerminalView.h"

#include "runtime/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <iostream>

namespace tol::ctl {

using runtime::trim;
using update::RefreshLabel;
using update::RunLabel;

// Called once for each row that is converted: it may do no more than keep the text.
void TerminalView::showLabel(RunLabel label, const std::string& text) {
    m_labels[static_cast<std::size_t>(label)] = text;
    m_progress.show([this] { return line(); });
}

void TerminalView::showRecordLabels(bool visible) {
    m_recordLabels = visible;
}

bool TerminalView::ask(const update::Question& question) {
    m_question(question);
    return UpdateView::ask(question);
}

void TerminalView::showNote(const update::DefinitionNote& note) {
    if (std::ranges::count(m_notes, note) == 0)
        m_notes.push_back(note);
}

void TerminalView::showError(const update::ReportedError& error) {
    if (m_errors.isRepeated(error))
        m_leave();
}

void TerminalView::showLeft(const update::LeftDatabase& database) {
    m_left.push_back(database);
    m_progress.clear();
    std::cerr << fmt::format("tolctl: left {}, {}, where the update could not go on; the run goes on with "
                             "the next database.\n",
                             trim(database.PATHNAME), trim(database.DBNAME));
}

void TerminalView::showMissing(const update::MissingFolder& folder) {
    if (std::ranges::count(m_missing, folder) > 0)
        return;
    m_missing.push_back(folder);
    m_progress.clear();
    std::cerr << fmt::format("tolctl: {}: there is no folder or drive '{}'.\n", trim(folder.PATHNAME),
                             folder.folder);
}

std::string TerminalView::line() const {
    std::string text = fmt::format("{}  {}  {}", label(RunLabel::NPPATHNAME), label(RunLabel::NPDBNAME),
                                   label(RunLabel::NP2));
    if (m_recordLabels)
        text += fmt::format("  record {} of {}", label(RunLabel::NP4), label(RunLabel::NP6));
    return text;
}

std::string_view TerminalView::label(RunLabel label) const {
    return trim(m_labels[static_cast<std::size_t>(label)]);
}

void TerminalRefreshView::showLabel(RefreshLabel label, const std::string& text) {
    m_labels[static_cast<std::size_t>(label)] = text;
    m_progress.show([this] {
        return fmt::format("{}  {}  {}{}", this->label(RefreshLabel::DBNAME),
                           this->label(RefreshLabel::TNAME), this->label(RefreshLabel::INAME),
                           this->label(RefreshLabel::FNAME));
    });
}

std::string_view TerminalRefreshView::label(RefreshLabel label) const {
    return trim(m_labels[static_cast<std::size_t>(label)]);
}

} // namespace tol::ctl
