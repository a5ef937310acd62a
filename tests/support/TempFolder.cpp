// SPDX-License-Identifier: MIT
#include "support/TempFolder.h"

#include "support/FileBytes.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <vector>

namespace tol::test {

namespace fs = std::filesystem;

TempFolder::TempFolder(const fs::path& parent) : m_before(fs::current_path()) {
    const std::string pattern = (parent / "tol-test-XXXXXX").string();
    std::vector<char> name(pattern.begin(), pattern.end());
    name.push_back('\0');
    if (mkdtemp(name.data()) == nullptr)
        throw std::runtime_error("no temporary folder");
    m_path = fs::canonical(name.data());
    fs::create_directories(driveC());
    fs::current_path(m_path);
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    fs::current_path(m_before, ignored);
    fs::remove_all(m_path, ignored);
}

void TempFolder::write(const fs::path& name, std::string_view content) const {
    const fs::path file = m_path / name;
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << content;
}

std::string TempFolder::read(const fs::path& name) const {
    return bytesOf(m_path / name);
}

} // namespace tol::test
