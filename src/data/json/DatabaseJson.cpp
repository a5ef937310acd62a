// SPDX-License-Identifier: MIT
#include "data/json/DatabaseJson.h"

#include "data/engine/FileError.h"
#include "data/engine/StagedFile.h"
#include "platform/Paths.h"

#include <filesystem>
#include <sstream>

namespace tol::data::json {

std::string databaseText(Database& database, const WriteOptions& options) {
    std::ostringstream out;
    writeDatabase(database, out, options);
    return std::move(out).str();
}

void makeDatabase(const std::string& file, std::istream& in, const RowWatcher& watcher) {
    const std::filesystem::path target = platform::hostPath(file);
    if (std::filesystem::exists(std::filesystem::symlink_status(target)))
        throw fileError(runtime::errDatabaseExists, target);
    StagedFile staged(target);
    {
        Workspace workspace = DBEngine::CreateWorkspace("wksJSON");
        Database database = workspace.CreateDatabase(staged.path().string());
        database.AcceptAsFound();
        workspace.BeginTrans();
        readDatabase(in, database, watcher);
        workspace.CommitTrans();
        database.Close();
        workspace.Close();
    }
    staged.publish();
}

void makeDatabase(const std::string& file, std::string_view text) {
    std::istringstream in{std::string(text)};
    makeDatabase(file, in);
}

} // namespace tol::data::json
