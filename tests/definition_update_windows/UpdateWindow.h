// SPDX-License-Identifier: MIT
#pragma once

#include "Controls.h"
#include "definition_update/windows/frmDBUDDU.h"
#include "forms/MdiForm.h"
#include "update_support/UpdateWorld.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace tol::test {

/// Base of tests of the update window: a folder in which it can run, a main window to lie in, and the person
/// of the folder's host, who answers boxes. The window is opened by the test when the folder is ready.
class UpdateWindow : public testing::Test {
  protected:
    UpdateWindow();

    /// Job Sites SITE01, SITE02, ... on drive C, with nothing in their folders.
    static void addSites(int count);
    /// One Job Site NORTH, whose database JOBS lacks the field NOTE and the index ORDERS. Its field NUMBER is
    /// a text, and 2 of its rows is too large a number unless `convertible`.
    void addOutdatedSite(int rows = 3, bool convertible = true);
    /// The database that addOutdatedSite() made, as it is now.
    [[nodiscard]] Json outdated() const { return readDatabase(world.folder / "drives/c/NORTH/JOBS.mdb"); }
    /// Opens the window and waits until it has the keyboard.
    void open();
    /// Has the step taken at that yield behind this call.
    void atYield(int yield, std::function<void()> step);

    [[nodiscard]] update::frmDBUDDU& window() const;
    [[nodiscard]] static bool isOpen();
    /// Captions of a row of labels; and of a column.
    [[nodiscard]] std::string text(const char* control) const { return textOf(window(), control); }
    [[nodiscard]] std::vector<std::string> column(const char* label) const;
    [[nodiscard]] bool enabled(const char* control) const { return isEnabled(window(), control); }
    [[nodiscard]] bool visible(const char* control) const { return isVisible(window(), control); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { test::press(window(), key, modifiers); }
    void click(const char* control) { test::click(window(), control); }
    /// Rows of the site list that bear the mark.
    [[nodiscard]] std::vector<int> marked() const;
    /// The highlighted row of a column of labels, -1 for none; more than one is an error.
    [[nodiscard]] int highlighted(const char* label) const;
    /// States of the controls as one line, to compare with.
    [[nodiscard]] std::string state() const;

    UpdateWorld world;
    forms::MdiForm main{"frmTOLMAIN"};
};

} // namespace tol::test
