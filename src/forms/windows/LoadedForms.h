// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QWidget;

namespace tol::forms {

/// All forms that are loaded, shown or not, in the order in which they were loaded. When the last one
/// has been unloaded, the program's event loop ends.
class LoadedForms {
  public:
    static int Count();
    /// By position from 0, and by name (case matters; null when there is none).
    static QWidget& Item(int position);
    static QWidget* find(const QString& name);

  private:
    friend class Form;
    friend class MdiForm;
    static void add(QWidget& form);
    static void remove(QWidget& form);
};

} // namespace tol::forms
