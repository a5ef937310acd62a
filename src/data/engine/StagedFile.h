// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace tol::data {

/// A place beside a file where what is to bear its name can grow, with whatever files its making needs, until
/// it is complete. What was not published is removed with the object; what a killed program left in the
/// same folder is removed when the next one is made there.
class StagedFile {
  public:
    /// Raises 3044 without the target's folder, 3051 when nothing can be made in it.
    explicit StagedFile(std::filesystem::path target);
    StagedFile(const StagedFile&) = delete;
    StagedFile& operator=(const StagedFile&) = delete;
    ~StagedFile();

    /// The folder that is removed with everything in it.
    [[nodiscard]] const std::filesystem::path& folder() const { return m_folder; }
    /// Where to make the file; it bears the target's name in that folder.
    [[nodiscard]] std::filesystem::path path() const { return m_folder / m_target.filename(); }

    /// Each moves the file to its target, in one step, and both to the disk before they return.
    /// As a new file; 3204 when there is one.
    void publish();
    /// In the place of the file that is there, with its owner, permissions and attributes; 3051 when they
    /// can't be kept.
    void replace();

  private:
    bool make();
    void removeAbandoned() const;
    void flush(const std::filesystem::path& path) const;

    std::filesystem::path m_target;
    std::filesystem::path m_folder;
    int m_handle = -1; ///< on the folder; locked, which tells others that it is not abandoned
};

} // namespace tol::data
