// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tol::platform {

// What lists of drives, folders and files show. Paths are texts as in Paths.h, names as the disk spells
// them; hidden entries, and names that such a text can't hold, are left out.

/// The drives there are: "C:" and so on by the folder of drives, then its shares ("\\SERVER\SHARE"), then "/"
/// for the host's own tree. A drive whose place is gone is still told.
std::vector<std::string> drives();
/// The drive that a path lies on, one of those texts.
std::string driveOf(std::string_view path);

/// The folders from the root of the path's drive down to the path itself, each as a path:
/// "C:\", "C:\JOBS", "C:\JOBS\NORTH". A path without a drive starts at the current folder.
std::vector<std::string> folderChain(std::string_view path);
/// The last name of a path, the whole of it for the root of a drive.
std::string folderName(std::string_view path);
/// The path of an entry of a folder.
std::string inFolder(std::string_view folder, std::string_view name);

/// The names of a folder's folders, and of those of its files that fit the pattern, in which "*" stands for
/// any characters; without regard to case, and so is their order. A folder that is not there raises 76, one
/// that can't be read 75.
std::vector<std::string> foldersIn(std::string_view folder);
std::vector<std::string> filesIn(std::string_view folder, std::string_view pattern);

} // namespace tol::platform
