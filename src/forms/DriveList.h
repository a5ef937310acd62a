// SPDX-License-Identifier: MIT
#pragma once

#include "forms/EventProcedure.h"
#include "forms/Twips.h"

#include <QComboBox>

#include <string>

namespace tol::forms {

/// The drives there are, one of them chosen: at first that of the current folder. Change runs guarded when a
/// person chooses another.
class DriveList : public QComboBox {
  public:
    /// Put on the parent, which owns it.
    static DriveList& add(QWidget& parent, const QString& name, Place where);

    [[nodiscard]] std::string Drive() const { return currentText().toStdString(); }
    /// Chooses a drive without Change; one that is not among them is no choice.
    void Drive(const std::string& drive);
    void onChange(EventProcedure procedure) { m_change = std::move(procedure); }

  private:
    explicit DriveList(QWidget& parent);

    EventProcedure m_change;
};

} // namespace tol::forms
