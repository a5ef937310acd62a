// SPDX-License-Identifier: MIT
#include "platform/Folders.h"

#include "platform/Paths.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

#include <algorithm>
#include <filesystem>
#include <fmt/format.h>
#include <utility>

namespace tol::platform {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view separators = "\\/";
constexpr std::string_view hostTree = "/";

bool isLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool hasLetter(std::string_view path) {
    return path.size() >= 2 && isLetter(path[0]) && path[1] == ':';
}

/// Takes the next name off the front; "" at the end.
std::string_view takeName(std::string_view& path) {
    path.remove_prefix(std::min(path.find_first_not_of(separators), path.size()));
    const std::string_view name = path.substr(0, path.find_first_of(separators));
    path.remove_prefix(name.size());
    return name;
}

bool isShare(std::string_view path) {
    return path.size() > 2 && path.substr(0, 2).find_first_not_of(separators) == std::string_view::npos &&
           separators.find(path[2]) == std::string_view::npos;
}

std::string shareName(std::string_view server, std::string_view share) {
    return fmt::format("\\\\{}\\{}", server, share);
}

/// Takes the drive off the front of a path.
std::string takeDrive(std::string_view& path) {
    if (hasLetter(path)) {
        std::string drive = runtime::upperCase(path.substr(0, 2));
        path.remove_prefix(2);
        return drive;
    }
    if (!isShare(path))
        return std::string(hostTree);
    const std::string server(takeName(path));
    return shareName(server, takeName(path));
}

bool startsAtDrive(std::string_view path) {
    return hasLetter(path) || (!path.empty() && separators.find(path[0]) != std::string_view::npos);
}

bool isShown(const std::string& name) {
    return !name.starts_with('.') && name.find('\\') == std::string::npos;
}

/// Those of a folder's entries that are asked for, in order.
template <typename Wanted>
std::vector<std::string> namesIn(const fs::path& folder, Wanted wanted) {
    std::vector<std::pair<std::string, std::string>> names; // the folded one first, by which they are sorted
    std::error_code failure;
    for (fs::directory_iterator entry(folder, failure); !failure && entry != fs::directory_iterator();
         entry.increment(failure)) {
        std::string name = entry->path().filename().string();
        if (isShown(name) && wanted(*entry, name))
            names.emplace_back(runtime::foldCase(name), std::move(name));
    }
    if (failure)
        runtime::raise(failure == std::errc::no_such_file_or_directory ? runtime::errPathNotFound
                                                                       : runtime::errPathAccess,
                       {}, failure.message());
    std::ranges::sort(names);
    std::vector<std::string> result;
    result.reserve(names.size());
    for (auto& [folded, name] : names)
        result.push_back(std::move(name));
    return result;
}

bool isFolder(const fs::directory_entry& entry) {
    std::error_code ignored;
    return entry.is_directory(ignored);
}

/// As namesIn(), for a folder that need not be there.
template <typename Wanted>
std::vector<std::string> namesInAny(const fs::path& folder, Wanted wanted) {
    std::error_code ignored;
    return fs::is_directory(folder, ignored) ? namesIn(folder, wanted) : std::vector<std::string>();
}

/// Both are folded.
bool fits(std::string_view name, std::string_view pattern) {
    if (pattern.empty())
        return name.empty();
    if (pattern[0] != '*')
        return !name.empty() && name[0] == pattern[0] && fits(name.substr(1), pattern.substr(1));
    for (std::size_t skipped = 0; skipped <= name.size(); ++skipped)
        if (fits(name.substr(skipped), pattern.substr(1)))
            return true;
    return false;
}

} // namespace

std::vector<std::string> drives() {
    std::vector<std::string> result;
    const auto any = [](const fs::directory_entry&, const std::string&) { return true; };
    for (const std::string& name : namesInAny(drivesFolder(), any)) {
        std::string drive = runtime::upperCase(name) + ":";
        if (drive.size() == 2 && hasLetter(drive) && (result.empty() || result.back() != drive))
            result.push_back(std::move(drive));
    }
    const fs::path servers = drivesFolder() / "unc";
    for (const std::string& server : namesInAny(servers, any))
        for (const std::string& share : namesInAny(servers / server, any))
            result.push_back(shareName(server, share));
    result.emplace_back(hostTree);
    return result;
}

std::string driveOf(std::string_view path) {
    return takeDrive(path);
}

std::vector<std::string> folderChain(std::string_view path) {
    const std::string whole =
        startsAtDrive(path) ? std::string(path) : currentFolder() + "/" + std::string(path);
    std::string_view rest = whole;
    const std::string drive = takeDrive(rest);
    std::vector<std::string> chain{drive.size() == 2 ? drive + "\\" : drive};
    for (auto name = takeName(rest); !name.empty(); name = takeName(rest))
        if (name != ".")
            chain.push_back(inFolder(chain.back(), name));
    return chain;
}

std::string folderName(std::string_view path) {
    std::string_view rest = path;
    takeDrive(rest);
    std::string_view last;
    for (auto name = takeName(rest); !name.empty(); name = takeName(rest))
        last = name;
    return std::string(last.empty() ? path : last);
}

std::string inFolder(std::string_view folder, std::string_view name) {
    if (driveOf(folder) != hostTree)
        return join(folder, name);
    return std::string(folder) + (folder.ends_with('/') ? "" : "/") + std::string(name);
}

std::vector<std::string> foldersIn(std::string_view folder) {
    return namesIn(hostPath(folder),
                   [](const fs::directory_entry& entry, const std::string&) { return isFolder(entry); });
}

std::vector<std::string> filesIn(std::string_view folder, std::string_view pattern) {
    const std::string wanted = runtime::foldCase(pattern);
    return namesIn(hostPath(folder), [&](const fs::directory_entry& entry, const std::string& name) {
        return !isFolder(entry) && fits(runtime::foldCase(name), wanted);
    });
}

} // namespace tol::platform
