// SPDX-License-Identifier: MIT
#include "shell/vdfunctions/vdLocation.h"

#include "data/OpenTable.h"
#include "platform/Paths.h"
#include "platform/System.h"
#include "runtime/Host.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "shell/vdfunctions/vdBoxes.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdfunctions/vdTexts.h"

#include <fmt/format.h>

namespace tol::shell {
namespace {

using runtime::RuntimeError;

constexpr const char* locationFile = "NETPATH.MDB";
constexpr const char* notFound = " ";
constexpr const char* failed = "ERROR";

bool fileExists(std::string_view name) {
    return vdNotBlank(vdDir(name));
}

/// Where ZOVNET.MDB ought to be.
std::string networkDatabase(std::string_view path) {
    if (fileExists(locationFile))
        return platform::below(vdNetworkFolder(), "ZOVNET.MDB");
    std::string file = platform::below(path, "ZOVNET.MDB");
    if (fileExists(file))
        return file;
    return fileExists("ZOVNET.MDB") ? "ZOVNET.MDB" : notFound;
}

} // namespace

std::string vdDir(std::string_view name) {
    return platform::dir(name);
}

std::string vdNetworkFolder(data::Recordset& NETPATH) {
    if (NETPATH.RecordCount() == 0) {
        NETPATH.AddNew();
        NETPATH.Update();
    }
    NETPATH.MoveFirst();
    std::string path(runtime::trim(vdNullCheckText(NETPATH.Fields("Path"))));
    if (path.empty()) {
        path = platform::currentFolder();
        NETPATH.Edit();
        NETPATH.Fields("Path").Value(path);
        NETPATH.Update();
    }
    return platform::withoutBackslash(path);
}

std::string vdNetworkFolder() {
    if (!fileExists(locationFile))
        return {};
    data::OpenTable table("wksNETPATH", locationFile, "NETPATH");
    std::string folder = vdNetworkFolder(table.rows);
    table.Close();
    return folder;
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

std::string databaseName(std::string_view folder, std::string_view database) {
    return platform::join(runtime::trim(folder), database.empty() ? "MAIN.MDB" : database);
}

} // namespace tol::shell
