// SPDX-License-Identifier: MIT
#include "platform/Paths.h"
#include "platform/System.h"
#include "runtime/Text.h"
#include "shell/vdfunctions/MessageBox.h"
#include "shell/vdfunctions/vdfunctions.h"

#include <fmt/format.h>

namespace tol::shell {
namespace {

using runtime::RuntimeError;

constexpr const char* notFound = " ";
constexpr const char* failed = "ERROR";

bool fileExists(std::string_view name) {
    return vdNotBlank(vdDir(name));
}

/// The folder in the only row of NETPATH.MDB; an empty or blank row is filled with the current folder.
std::string storedFolder() {
    data::Workspace wksNETPATH = data::DBEngine::CreateWorkspace("wksNETPATH");
    data::Database database = wksNETPATH.OpenDatabase("NETPATH.MDB");
    data::Recordset rows = database.OpenRecordset("NETPATH", data::dbOpenTable);
    if (rows.RecordCount() == 0) {
        rows.AddNew();
        rows.Update();
        rows.MoveFirst();
    }
    std::string path(runtime::trim(vdNullCheckText(rows.Fields("Path"))));
    if (path.empty()) {
        path = platform::currentFolder();
        rows.Edit();
        rows.Fields("Path").Value(path);
        rows.Update();
    }
    database.Close();
    wksNETPATH.Close();
    return path;
}

/// Where ZOVNET.MDB ought to be.
std::string networkDatabase(std::string_view path) {
    if (fileExists("NETPATH.MDB")) {
        const std::string folder = storedFolder();
        return folder + (folder.ends_with('\\') ? "ZOVNET.MDB" : "\\ZOVNET.MDB");
    }
    std::string file = std::string(path) + "\\ZOVNET.MDB";
    if (fileExists(file))
        return file;
    return fileExists("ZOVNET.MDB") ? "ZOVNET.MDB" : notFound;
}

} // namespace

std::string vdDir(std::string_view name) {
    return platform::dir(name);
}

std::string vdNetPath(std::string_view path, bool quiet) {
    try {
        std::string file = networkDatabase(path);
        if (fileExists(file))
            return file;
        if (quiet)
            return notFound;
        showBox(fmt::format("Cannot Find the Database: {}\n\nFind the correct location for ZOVNET.mdb and "
                            "update your Network Database Location setting.",
                            runtime::trim(file)),
                runtime::MsgIcon::Critical, "Cannot Access");
    } catch (const RuntimeError& error) {
        vdProcessError("vdNetPath ", std::to_string(error.number()), error.description());
    }
    return failed;
}

std::string vdUserName() {
    constexpr std::size_t bufferSize = 200;
    std::string result = "Guest";
    try {
        std::string buffer(bufferSize, ' ');
        std::size_t size = bufferSize - 1;
        if (!platform::getUserName(buffer, size))
            return result;
        buffer.resize(std::min(size, bufferSize));
        if (const auto end = buffer.find('\0'); end != 0)
            result = buffer.substr(0, end);
    } catch (const RuntimeError& error) {
        showBox(fmt::format("Error in Function vdUserName() {} {}", error.number(), error.description()),
                runtime::MsgIcon::None, {});
    }
    return result;
}

} // namespace tol::shell
