// SPDX-License-Identifier: MIT
#include "demo/Workshop.h"

#include "runtime/RuntimeError.h"

#include <unistd.h>

#include <cstdlib>

namespace tol::demo {

namespace fs = std::filesystem;

namespace {

constexpr std::uintmax_t neededRoom = 64U << 20U;

} // namespace

fs::path Workshop::place() {
    const fs::path memory = "/dev/shm";
    std::error_code error;
    const fs::space_info space = fs::space(memory, error);
    const bool fits = !error && space.available >= neededRoom && access(memory.c_str(), W_OK) == 0;
    return fits ? memory : fs::temp_directory_path();
}

Workshop::Workshop() {
    std::string name = (place() / "tolvane-demo-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr)
        runtime::raise(runtime::errPathAccess, {name});
    m_folder = name;
}

Workshop::~Workshop() {
    std::error_code ignored;
    fs::remove_all(m_folder, ignored);
}

} // namespace tol::demo
