// SPDX-License-Identifier: MIT
#pragma once

#include "Person.h"
#include "definition_update/windows/frmDBUDDU.h"
#include "forms/windows/MdiForm.h"
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
    /// What another user does.
    static void deleteFirstSite();
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
    [[nodiscard]] Person person() const { return Person(window()); }
    [[nodiscard]] std::string text(const QString& control) const { return person().text(control); }
    [[nodiscard]] bool enabled(const QString& control) const { return person().isEnabled(control); }
    [[nodiscard]] bool visible(const QString& control) const { return person().isShown(control); }
    [[nodiscard]] std::string focus() const { return person().focus(); }
    void press(Qt::Key key, Qt::KeyboardModifiers held = {}) const { person().press(key, held); }
    void click(const QString& control) const { person().click(control); }
    void poke(const QString& control) const { person().poke(control); }
    /// Captions of a column of labels.
    [[nodiscard]] std::vector<std::string> column(const QString& label) const {
        return person().rows({label});
    }
    /// Rows of the site list that bear the mark.
    [[nodiscard]] std::vector<int> marked() const;
    /// The highlighted row of a column of labels, -1 for none; more than one is an error.
    [[nodiscard]] int highlighted(const QString& label) const;
    /// States of the controls as one line, to compare with.
    [[nodiscard]] std::string state() const;

    UpdateWorld world;
    forms::MdiForm main{"frmTOLMAIN"};
};

} // namespace tol::test
