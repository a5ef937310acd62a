// SPDX-License-Identifier: MIT
#pragma once

#include "shell/frmTOLMAIN.h"
#include "support/StartFolder.h"
#include "support/TestHost.h"

#include <gtest/gtest.h>

#include <QTimer>
#include <QWidget>

namespace tol::test {

/// The splash while it is loaded, else null.
QWidget* splash();

/// Lets the main window's timer tick at once instead of every half second, so many times.
void tick(shell::frmTOLMAIN& main, int times);

/// Base of tests that start the program's main window in a folder with the databases that it needs, with
/// a person who answers each box and notes it.
class Start : public testing::Test {
  protected:
    StartFolder folder;
    TestHost person;
};

/// Base of tests that begin with the main window up.
class Started : public Start {
  protected:
    Started();

    shell::frmTOLMAIN main;
};

} // namespace tol::test
