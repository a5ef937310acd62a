// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace tol::data::json {

/// A place beside a file that is to be made, where it can grow with whatever files its making needs, until it
/// is complete. What was not published is removed with the object.
class StagedFile {
  public:
    /// Raises 3204 when the target exists, 3044 without its folder, 3051 when nothing can be made in it.
    explicit StagedFile(std::filesystem::path target);
    StagedFile(const StagedFile&) = delete;
    StagedFile& operator=(const StagedFile&) = delete;
    ~StagedFile();

    /// Where to make the file; it bears the target's name in a folder of its own.
    [[nodiscard]] std::filesystem::path path() const { return m_folder / m_target.filename(); }
    /// Moves the file to its target, in one step; 3204 when one has come there meanwhile.
    void publish();

  private:
    std::filesystem::path m_target;
    std::filesystem::path m_folder;
};

} // namespace tol::data::json
