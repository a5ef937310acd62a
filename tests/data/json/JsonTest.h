// SPDX-License-Identifier: MIT
#pragma once

#include "data/DBEngine.h"
#include "data/json/DatabaseJson.h"
#include "data/sqlite/SqliteEngine.h"
#include "support/Raises.h"
#include "support/TempFolder.h"
#include "support/TestHost.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace tol::test {

/// Databases in a folder of their own, made from JSON and told as JSON.
class JsonTest : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        static const bool added =
            (data::DBEngine::addEngine(std::make_unique<data::sqlite::SqliteEngine>()), true);
        (void)added;
    }

    void make(std::string_view json, const std::string& file = "X.MDB") {
        data::json::makeDatabase(file, json);
    }

    data::Database& open(const std::string& file = "X.MDB") {
        m_workspace = data::DBEngine::CreateWorkspace("wks");
        m_database = m_workspace.OpenDatabase(file);
        return m_database;
    }
    void close() {
        m_database = {};
        m_workspace = {};
    }

    std::string dump(const std::string& file = "X.MDB", bool schemaOnly = false) {
        std::string text = data::json::databaseText(open(file), {schemaOnly, {}});
        close();
        return text;
    }

    /// What making a database of the text complains about.
    std::string complaint(std::string_view json) {
        return descriptionOf([&] { make(json); });
    }

    TestHost m_host;
    TempFolder m_folder;

  private:
    data::Workspace m_workspace;
    data::Database m_database;
};

} // namespace tol::test
