// SPDX-License-Identifier: MIT
#include "platform/System.h"

#include "runtime/Conversions.h"

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <pwd.h>
#include <unistd.h>
#include <utility>

namespace tol::platform {
namespace {

std::function<std::string()>& login() {
    static std::function<std::string()> installed;
    return installed;
}

std::string loginName() {
    if (login())
        return login()();
    if (const char* name = std::getenv("LOGNAME"); name != nullptr && *name != '\0')
        return name;
    const passwd* account = getpwuid(getuid());
    return account != nullptr ? account->pw_name : "";
}

std::function<runtime::Date()>& clock() {
    static std::function<runtime::Date()> installed;
    return installed;
}

runtime::Date systemTime() {
    const std::time_t seconds = std::time(nullptr);
    std::tm local{};
    localtime_r(&seconds, &local);
    return runtime::makeDate({.year = local.tm_year + 1900,
                              .month = local.tm_mon + 1,
                              .day = local.tm_mday,
                              .hour = local.tm_hour,
                              .minute = local.tm_min,
                              .second = std::min(local.tm_sec, 59)}); // a leap second has no name here
}

} // namespace

bool getUserName(std::string& buffer, std::size_t& size) {
    const std::string name = loginName();
    if (name.empty() || name.size() + 1 > size)
        return false;
    size = name.size() + 1;
    buffer.replace(0, size, name.c_str(), size);
    return true;
}

void setLoginName(std::function<std::string()> replacement) {
    login() = std::move(replacement);
}

runtime::Date now() {
    return clock() ? clock()() : systemTime();
}

void setClock(std::function<runtime::Date()> replacement) {
    clock() = std::move(replacement);
}

} // namespace tol::platform
