// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tol::platform {

/// Paths in the suite's data are drive-letter texts ("C:\JOBS\NORTH"), UNC texts ("\\SERVER\SHARE\X"),
/// host paths ("/srv/jobs/north", also in capitals and with backslashes) or bare names that are looked
/// up in the current folder. This is the only place that knows how such a text becomes a host path.
/// `\` and `/` both separate. Each component is matched exactly, else without regard to case. Two
/// entries that differ in case alone, neither of them exact, raise RuntimeError 75 that names both.

/// The host path that a text stands for. Components that do not exist keep the text's own spelling, so
/// that a file can be created there. A drive that does not exist raises 76 and names the drives folder.
std::filesystem::path hostPath(std::string_view text);

/// Directory look-up: the name (last component, as the disk spells it) of the file that the text stands
/// for, "" when there is none, when it is a folder, or when its drive or share does not exist.
std::string dir(std::string_view text);

/// The folder in which the file that the text stands for would lie, where that is not there: its drive ("S:")
/// or share where there is none such, else the folder. "" when the folder exists.
std::string missingFolder(std::string_view file);

/// The current folder as a text, without a trailing separator (the root excepted).
std::string currentFolder();

/// The folder of drives: one entry (folder or link) per letter, UNC shares under "unc". It is
/// $TOL_DRIVES, else "drives" in the current folder where that exists, else "tolvane/drives" in the
/// user's data folder.
std::filesystem::path drivesFolder();

/// The folder and the file joined with one backslash, the separator of the suite's own texts; the bare file,
/// which lies in the current folder, when there is no folder.
std::string join(std::string_view folder, std::string_view file);

/// The file below a location of the data, which is taken as it stands: a backslash always comes between, so
/// that a blank location is the root and never the current folder.
std::string below(std::string_view location, std::string_view file);

/// The path without one backslash at its end.
std::string withoutBackslash(std::string_view path);

} // namespace tol::platform
