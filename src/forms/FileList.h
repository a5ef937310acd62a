// SPDX-License-Identifier: MIT
#pragma once

#include "forms/ListBox.h"

namespace tol::forms {

/// The files of a folder whose names fit a pattern. A folder that can't be read shows none.
class FileList : public ListBox {
  public:
    /// Put on the parent, which owns it; shows the current folder at first.
    static FileList& add(QWidget& parent, const QString& name, const std::string& pattern, Place where);

    [[nodiscard]] const std::string& Path() const { return m_path; }
    void Path(const std::string& path);
    [[nodiscard]] const std::string& Pattern() const { return m_pattern; }
    /// Looks at the disk again.
    void Refresh();

  private:
    FileList(QWidget& parent, std::string pattern);

    std::string m_path, m_pattern;
};

} // namespace tol::forms
