// SPDX-License-Identifier: MIT
#include "data/DBEngine.h"
#include "data/json/DatabaseJson.h"
#include "data/sqlite/SqliteEngine.h"
#include "runtime/RuntimeError.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

namespace {

namespace fs = std::filesystem;
using namespace tol::data;

/// A folder in memory: fuzzing writes thousands of files. The current folder stays, since the fuzzer
/// finds its inputs from there.
fs::path makeFolder() {
    std::string pattern =
        (fs::is_directory("/dev/shm") ? fs::path("/dev/shm") : fs::temp_directory_path()) / "tol-fuzz-XXXXXX";
    if (mkdtemp(pattern.data()) == nullptr)
        std::abort();
    DBEngine::addEngine(std::make_unique<sqlite::SqliteEngine>());
    return pattern;
}

std::string dump(const std::string& file) {
    Workspace workspace = DBEngine::CreateWorkspace("wks");
    Database database = workspace.OpenDatabase(file);
    return json::databaseText(database);
}

void require(bool holds) {
    if (!holds)
        std::abort();
}

} // namespace

/// Any text either makes a database, whose dump makes the same database, or is refused and leaves nothing.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fs::path folder = makeFolder();
    static const std::string first = folder / "A.MDB", second = folder / "B.MDB";
    try {
        json::makeDatabase(first, std::string_view(reinterpret_cast<const char*>(data), size));
    } catch (const tol::runtime::RuntimeError&) {
        require(fs::is_empty(folder));
        return 0;
    }
    const std::string text = dump(first);
    json::makeDatabase(second, text);
    require(dump(second) == text);
    for (const auto& entry : fs::directory_iterator(folder))
        fs::remove_all(entry.path());
    return 0;
}
