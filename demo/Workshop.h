// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace tol::demo {

/// A new folder to make things in, which is gone again at the end. It lies in memory where the system has
/// room for that: making the demo there spares some seven hundred waits for the disk.
class Workshop {
  public:
    /// Raises 75 when no folder can be made.
    Workshop();
    Workshop(const Workshop&) = delete;
    Workshop& operator=(const Workshop&) = delete;
    ~Workshop();

    /// Where such folders are made.
    static std::filesystem::path place();
    [[nodiscard]] const std::filesystem::path& folder() const { return m_folder; }

  private:
    std::filesystem::path m_folder;
};

} // namespace tol::demo
