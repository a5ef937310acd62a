// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tol::jobsites {

/// The person's own database holds the settings in force (SETTINGS, one row) and a copy of them for each Job
/// Site that was used (DBSETTINGS, by its number). Which fields there are is the other modules' affair: what
/// both tables have under exactly the same name is copied, but never the number, DBTAG.

/// Copies the settings in force to those of a Job Site, for which a row is made where there is none. Any
/// error is told in a box; false then, and the copy is as it was. The database is always the person's own:
/// the folder is not looked at.
bool vdSaveUserSettings(std::string_view folder, std::int32_t tag);

/// Puts the settings of a Job Site in force. One that has none gets an empty row, whose values then are in
/// force. Any error is told in a box with the name of the field that was being copied; false then, and the
/// settings in force are as they were.
bool vdLoadUserSettings(std::string_view folder, std::int32_t tag);

/// The change from one Job Site to another: keeps the settings in force for the one and, if that has
/// succeeded, puts those of the other in force.
bool changeUserSettings(std::int32_t from, std::int32_t to);

/// Number of the Job Site whose settings are in force, as far as they tell it themselves: in a field DBTAG of
/// SETTINGS, which whoever changes the Job Site sets afterwards. Nothing without that field, its value or the
/// database; then nothing is noted either.
std::optional<std::int32_t> siteInForce();
void noteSiteInForce(std::int32_t tag);

} // namespace tol::jobsites
