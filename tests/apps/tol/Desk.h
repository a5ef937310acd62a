// SPDX-License-Identifier: MIT
#pragma once

#include "VirtualDisplay.h"

#include "support/StartFolder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tol::test {

/// A person before the program, all by keys, from the main menu on. What came of it is read from the files
/// with the terminal program.
class Desk : public testing::Test {
  protected:
    /// `makeWork` makes the folder in which the program works below the one that it is given, or there.
    explicit Desk(const std::function<std::filesystem::path(const std::filesystem::path&)>& makeWork)
        : work(makeWork(folder.path())) {}
    void SetUp() override;

    /// Runs a program to its end; what it printed.
    std::string printedBy(const std::filesystem::path& program,
                          const std::vector<std::string>& arguments) const;
    /// The rows of a table as they are in the file right now.
    [[nodiscard]] nlohmann::json rows(const std::string& file, const std::string& table) const;
    [[nodiscard]] bool comes(const std::string& file, const std::string& table,
                             const std::function<bool(const nlohmann::json&)>& isThere) const;

    /// A window inside the main window has no title that the display knows of.
    void open(const std::vector<std::string>& keys) const;
    void answer(const std::string& box, const std::string& key) const;
    void saveAsPdf(const std::string& file) const;
    [[nodiscard]] std::string textOf(const std::string& pdf) const;
    /// Ends the program from its menu.
    void leave() const;

    StartFolder folder;
    const std::filesystem::path work;
    VirtualDisplay display{work};
    std::unique_ptr<Program> tol;
    static constexpr const char* mainTitle = "Zovarin Series - Tolvane Module";
};

} // namespace tol::test
