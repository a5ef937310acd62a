// SPDX-License-Identifier: MIT
#include "shell/SystemInformation.h"

#include "platform/Paths.h"
#include "platform/Registry.h"
#include "runtime/Host.h"
#include "runtime/RuntimeError.h"
#include "shell/vdfunctions/vdLocation.h"
#include "shell/vdfunctions/vdTexts.h"

#include <QProcess>

#include <cstdint>
#include <filesystem>

namespace tol::shell {
namespace {

using platform::RegistryValue;

constexpr std::size_t bufferSize = 1024;

std::string numberText(std::string_view bytes) {
    std::uint32_t number = 0;
    for (auto byte = bytes.rbegin(); byte != bytes.rend(); ++byte)
        number = number << 8 | static_cast<std::uint8_t>(*byte);
    return std::to_string(static_cast<std::int32_t>(number));
}

/// The program's path; "" for none.
std::string informationProgram() {
    std::string path;
    if (GetKeyValue(R"(HKEY_LOCAL_MACHINE\SOFTWARE\Microsoft\Shared Tools\MSINFO)", "PATH", path))
        return path;
    if (!GetKeyValue(R"(HKEY_LOCAL_MACHINE\SOFTWARE\Microsoft\Shared Tools Location)", "MSINFO", path))
        return {};
    path += "\\MSINFO32.EXE";
    return vdNotBlank(vdDir(path)) ? path : std::string();
}

bool start(const std::string& program) {
    if (vdIsBlank(program))
        return false;
    // With its whole path, so that it is not looked for elsewhere.
    const std::filesystem::path file = std::filesystem::absolute(platform::hostPath(program));
    return QProcess::startDetached(QString::fromStdString(file), {});
}

bool startIfThere() {
    try {
        return start(informationProgram());
    } catch (const runtime::RuntimeError&) { // a drive that does not exist
        return false;
    }
}

} // namespace

bool GetKeyValue(std::string_view key, std::string_view name, std::string& value) {
    value.clear();
    auto found = platform::registryValue(key, name);
    if (!found || found->bytes.size() > bufferSize)
        return false;
    if (found->bytes.ends_with('\0'))
        found->bytes.pop_back();
    if (found->type == RegistryValue::text)
        value = found->bytes;
    else if (found->type == RegistryValue::number)
        value = numberText(found->bytes);
    return true;
}

void startSystemInformation() {
    if (!startIfThere())
        runtime::host().msgBox("System Information Is Unavailable At This Time");
}

} // namespace tol::shell
