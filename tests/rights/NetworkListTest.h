// SPDX-License-Identifier: MIT
#pragma once

#include "support/ListWindowTest.h"
#include "support/NetworkTables.h"

#include <string>

namespace tol::test {

/// Base of tests of list windows over a network database with all its tables.
class NetworkListTest : public ListWindowTest {
  protected:
    using ListWindowTest::ListWindowTest;

    void expectRefusal(const std::string& text) const {
        expectBox(text, QMessageBox::Critical, "Cannot Update Record");
    }
    /// The box of a row that a unique index refuses.
    [[nodiscard]] std::string refusedBy(const std::string& index) const {
        return "The change was not made: it would create duplicate values in the index or primary key '" +
               index + "'.\nFile: " + (folder / NetworkTables::file).string();
    }

    NetworkTables net;
};

} // namespace tol::test
