// SPDX-License-Identifier: MIT
#include "network/model/NetworkLocation.h"

#include "data/OpenTable.h"
#include "data/engine/StagedFile.h"
#include "platform/Paths.h"
#include "runtime/RuntimeError.h"
#include "shell/vdfunctions/vdLocation.h"
#include "shell/vdfunctions/vdTexts.h"

#include <filesystem>
#include <system_error>

namespace tol::network {
namespace {

bool isMissing(std::string_view file) {
    return shell::vdIsBlank(shell::vdDir(file));
}

/// A copy that breaks off leaves no file.
void copyPathFile(const std::string& from) {
    if (isMissing(from))
        throw runtime::RuntimeError(runtime::errFileNotFound,
                                    runtime::describe(runtime::errFileNotFound) + ": '" + from + "'");
    data::StagedFile copy(platform::hostPath(locationFile));
    std::error_code error;
    std::filesystem::copy_file(platform::hostPath(from), copy.path(), error);
    if (error)
        runtime::raise(runtime::errPathAccess, {}, error.message());
    copy.publish();
}

/// A sibling's path file has its table under the sibling's name.
void nameTable() {
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksNET");
    data::Database database = workspace.OpenDatabase(locationFile);
    const data::TableDefs tables = database.TableDefs();
    std::string last;
    for (int i = 0; i < tables.Count(); ++i)
        if (const std::string name = tables(i).Name(); name.find("PATH") != std::string::npos)
            last = name;
    if (last != locationTable)
        tables(last).Name(locationTable);
    workspace.Close();
}

} // namespace

std::optional<std::string> networkLocation(const SuiteModule& module) {
    if (isMissing(locationFile)) {
        if (shell::vdIsBlank(module.pathFile))
            return std::nullopt;
        copyPathFile(std::string(module.pathFile));
    }
    nameTable();
    return shell::vdNetworkFolder();
}

void storeLocation(data::Recordset& NETPATH, const std::string& location) {
    if (NETPATH.RecordCount() == 0) {
        NETPATH.AddNew();
    } else {
        NETPATH.MoveFirst();
        NETPATH.Edit();
    }
    NETPATH.Fields("Path").Value(location.empty() ? " " : location); // the field may refuse an empty text
    NETPATH.Update();
}

void storeLocation(const std::string& location) {
    data::OpenTable table("wksNET", locationFile, locationTable);
    storeLocation(table.rows, location);
    table.Close();
}

} // namespace tol::network
