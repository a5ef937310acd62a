// SPDX-License-Identifier: MIT
#pragma once

#include "data/Recordset.h"

#include <string>
#include <string_view>

namespace tol::shell {

/// The database with the person's own settings, on the local disk.
inline constexpr const char* userDatabase = R"(C:\ZOVUSER\ZOVUSER.MDB)";

/// Directory look-up: the file's name, "" when absent.
std::string vdDir(std::string_view name);
/// Full path of ZOVNET.MDB by NETPATH.MDB of the current folder, else by `path`, else in the current
/// folder. Not found: "ERROR" after a box, or " " when quiet.
std::string vdNetPath(std::string_view path, bool quiet);
/// The folder of ZOVNET.MDB by the only row of NETPATH.MDB in the current folder, without one trailing
/// backslash; "" when there is no NETPATH.MDB. An empty or blank row is filled with the current folder.
std::string vdNetworkFolder();
/// The same from the table NETPATH, which somebody has open; it stands on its first record afterwards.
std::string vdNetworkFolder(data::Recordset& NETPATH);
/// The log-in name, "Guest" when there is none or it is longer than the platform's buffer.
std::string vdUserName();
/// The file name of a database in a folder: MAIN.MDB when no name is given, by its bare name (that is, in
/// the current folder) when the folder is blank.
std::string databaseName(std::string_view folder, std::string_view database);

} // namespace tol::shell
