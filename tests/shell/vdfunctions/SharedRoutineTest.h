// SPDX-License-Identifier: MIT
#pragma once

#include "data/DBEngine.h"
#include "runtime/Host.h"
#include "support/Raises.h"
#include "support/TempFolder.h"
#include "support/TestHost.h"

#include <gtest/gtest.h>

#include <string>

namespace tol::test {

/// A current folder with databases, and the person who is shown the boxes.
class SharedRoutineTest : public testing::Test {
  protected:
    SharedRoutineTest();

    /// Makes the file with one table; fields, indexes and rows are JSON lists.
    void make(const std::string& file, const std::string& table, const std::string& fields,
              const std::string& indexes = "[]", const std::string& rows = "[]") const;
    /// The whole content of a database, read anew.
    [[nodiscard]] static std::string content(const std::string& file);
    /// Expects exactly one box so far, an OK box with that icon, which also stands in gMsgText and gMsgTitle.
    void expectBox(runtime::MsgIcon icon, const std::string& title, const std::string& text) const;

    TempFolder folder;
    TestHost person;
    data::Workspace workspace = data::DBEngine::CreateWorkspace("test");
};

} // namespace tol::test
