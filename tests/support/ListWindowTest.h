// SPDX-License-Identifier: MIT
#pragma once

#include "forms/events/WindowHost.h"
#include "forms/windows/MdiForm.h"
#include "support/BoxAnswerer.h"
#include "support/StartFolder.h"
#include "support/TestTable.h"
#include "support/WindowDriver.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace tol::forms {
class Form;
}

namespace tol::test {

/// Base of tests of a list window: a main window to open it in, a person who answers the boxes, and what
/// the list shows.
class ListWindowTest : public testing::Test {
  protected:
    /// `columns` are the list's label arrays without "lbl"; the boxes over them are called likewise. `boxes`
    /// are those of them that have a box, if not all have one.
    explicit ListWindowTest(std::vector<QString> columns, std::vector<QString> boxes = {});

    /// Opens a window as a child of the main window; the one last opened is the one looked at.
    void show(std::unique_ptr<forms::Form> made);

    /// The list's rows up to the last one that is not blank, columns joined by bars.
    [[nodiscard]] std::vector<std::string> page() const;
    [[nodiscard]] std::size_t pageSize() const { return desk->rows(m_labels).size(); }
    /// The highlighted row, -1 for none; all its columns have to be highlighted, and no other row's.
    [[nodiscard]] int highlight() const;
    /// Whether the edit boxes are in sight.
    [[nodiscard]] bool isEditing() const;
    /// Exactly one box has been shown, and that is it.
    void expectBox(const std::string& text, QMessageBox::Icon icon, const std::string& title) const;
    /// Each edit box covers exactly the label of that row, or begins where it begins when a button ends it.
    void expectBoxesOver(int row) const;
    /// Nothing but cmdExit is left on the window.
    void expectOnlyTheExitButton() const;

    StartFolder folder;
    forms::WindowHost host;
    BoxAnswerer person;
    forms::MdiForm parent{"frmParent"};
    forms::Form* window = nullptr;
    std::unique_ptr<WindowDriver> desk;

  private:
    std::vector<QString> m_boxed, m_labels;
};

} // namespace tol::test
