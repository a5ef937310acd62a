// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

namespace tol::test {

/// A folder of the test's own that is the current folder while it lives and is removed afterwards.
/// It has a folder of drives with drive C in it ("drives/c").
class TempFolder {
  public:
    /// Makes it below `parent`, or where the system keeps such folders.
    explicit TempFolder(const std::filesystem::path& parent = std::filesystem::temp_directory_path());
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder();

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }
    [[nodiscard]] std::filesystem::path operator/(std::string_view name) const { return m_path / name; }
    [[nodiscard]] std::filesystem::path driveC() const { return m_path / "drives" / "c"; }
    /// Writes a file, its folders included.
    void write(const std::filesystem::path& name, std::string_view content) const;
    [[nodiscard]] std::string read(const std::filesystem::path& name) const;

  private:
    std::filesystem::path m_before;
    std::filesystem::path m_path;
};

} // namespace tol::test
