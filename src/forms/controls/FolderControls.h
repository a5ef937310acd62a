// SPDX-License-Identifier: MIT
#pragma once

#include "forms/controls/ListBox.h"
#include "forms/events/EventProcedure.h"
#include "forms/look/Twips.h"

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

/// The folders from the root of a drive down to one of them, and that one's own folders. A double click or
/// Enter on a folder opens it. Click tells of a line that was selected, Change of another Path, whoever set
/// it.
class FolderList : public ListBox {
  public:
    /// Put on the parent, which owns it; shows the current folder at first.
    static FolderList& add(QWidget& parent, const QString& name, Place where);

    [[nodiscard]] const std::string& Path() const { return m_path; }
    /// A folder or a drive. One that is not there or can't be read raises 76 or 75 and changes nothing.
    void Path(const std::string& path);
    void onChange(EventProcedure procedure) { m_change = std::move(procedure); }

  private:
    explicit FolderList(QWidget& parent);
    void show(const std::string& path);
    void addFolder(const std::string& path, int depth, bool open);
    void openSelected();

    std::string m_path;
    EventProcedure m_change;
};

/// The files of a folder whose names fit a pattern. A folder that can't be read shows none.
class FileList : public ListBox {
  public:
    /// Put on the parent, which owns it; shows the current folder at first.
    static FileList& add(QWidget& parent, const QString& name, const std::string& pattern, Place where);

    [[nodiscard]] const std::string& Path() const { return m_path; }
    void Path(const std::string& path);
    /// Looks at the disk again.
    void Refresh();

  private:
    FileList(QWidget& parent, std::string pattern);

    std::string m_path, m_pattern;
};

} // namespace tol::forms
