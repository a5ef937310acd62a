// SPDX-License-Identifier: MIT
#pragma once

#include "forms/ListBox.h"

namespace tol::forms {

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

} // namespace tol::forms
