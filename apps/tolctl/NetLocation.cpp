// SPDX-License-Identifier: MIT
#include "tolctl/NetLocation.h"

#include "data/DBEngine.h"
#include "platform/Paths.h"
#include "runtime/Text.h"
#include "shell/vdfunctions/vdfunctions.h"

namespace tol::ctl {
namespace {

constexpr const char* pathFile = "NETPATH.MDB";

std::string storedPath() {
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksNETPATH");
    data::Database database = workspace.OpenDatabase(pathFile);
    data::Recordset rows = database.OpenRecordset("NETPATH");
    if (rows.RecordCount() == 0)
        return {};
    return std::string(runtime::trim(shell::vdNullCheckText(rows.Fields("Path"))));
}

} // namespace

std::string netLocation() {
    if (shell::vdIsBlank(shell::vdDir(pathFile)))
        return {};
    std::string path = storedPath();
    if (path.empty())
        path = platform::currentFolder();
    if (path.ends_with('\\'))
        path.pop_back();
    return path;
}

} // namespace tol::ctl
