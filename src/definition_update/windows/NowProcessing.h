// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/UpdateView.h"
#include "forms/look/Twips.h"

#include <array>
#include <string>

class QGroupBox;
class QLabel;
class QWidget;

namespace tol::update {

/// The frame that tells what a run is at: site, location, database, table, and the record while the rows of
/// a table are gone through. At the end it tells how the run came out. Its controls are its parent's.
class NowProcessing {
  public:
    NowProcessing(QWidget& parent, forms::Place where);

    void setVisible(bool visible);
    void showLabel(RunLabel label, const std::string& text);
    void showRecordLabels(bool visible);

  private:
    void addLine(const char* headingName, const char* heading, RunLabel label, const char* name,
                 forms::Place where);
    void addRecordLine(int left, int top);

    QGroupBox& m_frame;
    std::array<QLabel*, 6> m_labels{};       ///< by RunLabel
    std::array<QLabel*, 4> m_recordLabels{}; ///< "Record: n of m"
};

} // namespace tol::update
