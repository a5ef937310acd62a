// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tol::platform {

/// A value of the registry as it is stored.
struct RegistryValue {
    static constexpr std::uint32_t text = 1;   ///< bytes with a NUL behind them
    static constexpr std::uint32_t number = 4; ///< four bytes, the lowest first

    std::uint32_t type = 0;
    std::string bytes;
};

/// The value of that name under a key such as "HKEY_LOCAL_MACHINE\SOFTWARE\Maker"; nothing when there is
/// none. Case does not matter. This system has no registry: without $TOL_REGISTRY nothing is ever found; with
/// it, what stands in the file that it names, in the form in which a registry is exported:
///
///     [HKEY_LOCAL_MACHINE\SOFTWARE\Maker]
///     "PATH"="C:\\TOOLS\\INFO.EXE"
///     "Count"=dword:0000002a
///     "Other"=hex(7):61,00
///
/// A line that is none of these is passed by.
std::optional<RegistryValue> registryValue(std::string_view key, std::string_view name);

} // namespace tol::platform
