// SPDX-License-Identifier: MIT
#include "platform/Paths.h"

#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

#include <cstdlib>
#include <fmt/format.h>
#include <optional>
#include <pwd.h>
#include <unistd.h>
#include <vector>

namespace tol::platform {
namespace {

namespace fs = std::filesystem;
using runtime::RuntimeError;

constexpr std::string_view separators = "\\/";

/// A text taken apart: the folder that it starts from, and the names that lead on from there.
struct Parsed {
    fs::path root;
    std::vector<std::string_view> names;
    /// How many of the names are the drive, or the server and its share: these must exist.
    std::size_t driveNames = 0;
};

bool isSeparator(char c) {
    return separators.find(c) != std::string_view::npos;
}

bool isLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

/// One drive letter's entry in the folder of drives; by custom it is the letter in lower case.
std::string_view driveEntry(char letter) {
    static constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyz";
    return letters.substr(static_cast<std::size_t>((letter | 0x20) - 'a'), 1);
}

std::vector<std::string_view> namesIn(std::string_view text) {
    std::vector<std::string_view> names;
    while (!text.empty()) {
        const auto end = std::min(text.find_first_of(separators), text.size());
        if (const auto name = text.substr(0, end); !name.empty() && name != ".")
            names.push_back(name);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return names;
}

fs::path currentPath() {
    std::error_code failure;
    fs::path path = fs::current_path(failure);
    if (failure)
        runtime::raise(runtime::errPathNotFound, {}, failure.message());
    return path;
}

Parsed parse(std::string_view text) {
    if (text.find('\0') != std::string_view::npos)
        runtime::raise(runtime::errPathAccess);
    if (text.size() >= 2 && isLetter(text[0]) && text[1] == ':') {
        Parsed parsed{drivesFolder(), namesIn(text.substr(2)), 1};
        parsed.names.insert(parsed.names.begin(), driveEntry(text[0]));
        return parsed;
    }
    Parsed parsed{{}, namesIn(text), 0};
    const bool isUnc = text.size() >= 2 && isSeparator(text[0]) && text[1] == text[0];
    if (isUnc && parsed.names.size() >= 2) {
        parsed.root = drivesFolder() / "unc";
        parsed.driveNames = 2;
    } else {
        parsed.root = !text.empty() && isSeparator(text[0]) ? fs::path("/") : currentPath();
    }
    return parsed;
}

/// The path with the first `count` names.
fs::path pathTo(const Parsed& parsed, std::size_t count) {
    std::string path = parsed.root.string();
    for (std::size_t i = 0; i < count; ++i) {
        if (!path.ends_with('/'))
            path += '/';
        path += parsed.names[i];
    }
    return path;
}

fs::file_type typeOf(const fs::path& path) {
    std::error_code ignored;
    return fs::status(path, ignored).type();
}

bool exists(fs::file_type type) {
    return type != fs::file_type::not_found && type != fs::file_type::none;
}

/// The folder's only entry that is the name but for the case of its letters.
std::optional<fs::path> findIgnoringCase(const fs::path& folder, std::string_view name) {
    std::optional<fs::path> found;
    std::error_code failure;
    for (fs::directory_iterator entry(folder, failure); !failure && entry != fs::directory_iterator();
         entry.increment(failure)) {
        if (!runtime::sameText(entry->path().filename().native(), name))
            continue;
        if (found)
            throw RuntimeError(runtime::errPathAccess,
                               fmt::format("{}: '{}' and '{}' differ in nothing but case.",
                                           runtime::describe(runtime::errPathAccess), found->string(),
                                           entry->path().string()));
        found = entry->path();
    }
    return found;
}

struct Resolved {
    fs::path path;
    fs::file_type type;
    std::size_t namesFound; ///< how many of the names exist on the disk
};

Resolved resolve(const Parsed& parsed) {
    std::size_t found = parsed.names.size();
    fs::path path = pathTo(parsed, found);
    fs::file_type type = typeOf(path);
    if (exists(type))
        return {path, type, found};

    // From the end backwards: as a rule the folder exists as it is spelled and the last name alone does not.
    while (found > 0 && !exists(type))
        type = typeOf(path = pathTo(parsed, --found));
    for (; found < parsed.names.size(); ++found) {
        const fs::path next = path / parsed.names[found];
        if (exists(typeOf(next))) {
            path = next;
        } else if (const auto entry = findIgnoringCase(path, parsed.names[found])) {
            path = *entry;
        } else {
            break;
        }
    }
    const std::size_t all = parsed.names.size();
    if (found == all)
        return {path, typeOf(path), found};
    for (std::size_t i = found; i < all; ++i)
        path /= parsed.names[i];
    return {path, fs::file_type::not_found, found};
}

bool isShare(const Parsed& parsed) {
    return parsed.driveNames == 2;
}

std::string driveText(const Parsed& parsed) {
    return isShare(parsed) ? fmt::format("\\\\{}\\{}", parsed.names[0], parsed.names[1])
                           : runtime::upperCase(parsed.names[0]) + ":";
}

[[noreturn]] void raiseNoDrive(const Parsed& parsed) {
    throw RuntimeError(runtime::errPathNotFound,
                       fmt::format("{}: there is no {} '{}' in the folder of drives '{}'.",
                                   runtime::describe(runtime::errPathNotFound),
                                   isShare(parsed) ? "share" : "drive", driveText(parsed),
                                   drivesFolder().string()));
}

/// The folder in which the user's programs keep their data.
fs::path userDataFolder() {
    if (const char* data = std::getenv("XDG_DATA_HOME"); data != nullptr && data[0] == '/')
        return data;
    const char* home = std::getenv("HOME");
    if (home == nullptr || *home == '\0') {
        const passwd* account = getpwuid(getuid());
        home = account != nullptr ? account->pw_dir : "/";
    }
    return fs::path(home) / ".local" / "share";
}

} // namespace

fs::path hostPath(std::string_view text) {
    const Parsed parsed = parse(text);
    Resolved resolved = resolve(parsed);
    if (resolved.namesFound < parsed.driveNames)
        raiseNoDrive(parsed);
    return std::move(resolved.path);
}

std::string dir(std::string_view text) {
    const Resolved resolved = resolve(parse(text));
    if (!exists(resolved.type) || resolved.type == fs::file_type::directory)
        return {};
    return resolved.path.filename().string();
}

std::string missingFolder(std::string_view file) {
    const auto end = file.find_last_of(separators);
    if (end == std::string_view::npos)
        return {};
    const std::string_view folder = file.substr(0, end);
    const Parsed parsed = parse(folder);
    const Resolved resolved = resolve(parsed);
    if (resolved.namesFound < parsed.driveNames)
        return driveText(parsed);
    return resolved.type == fs::file_type::directory ? std::string() : std::string(folder);
}

std::string currentFolder() {
    return currentPath().string();
}

fs::path drivesFolder() {
    if (const char* folder = std::getenv("TOL_DRIVES"); folder != nullptr && *folder != '\0')
        return fs::absolute(folder);
    const fs::path here = currentPath() / "drives";
    return typeOf(here) == fs::file_type::directory ? here : userDataFolder() / "tolvane" / "drives";
}

std::string join(std::string_view folder, std::string_view file) {
    std::string path(folder);
    if (!path.empty() && !isSeparator(path.back()))
        path += '\\';
    return path.append(file);
}

std::string below(std::string_view location, std::string_view file) {
    return std::string(location).append("\\").append(file);
}

std::string withoutBackslash(std::string_view path) {
    return std::string(path.substr(0, path.size() - (path.ends_with('\\') ? 1 : 0)));
}

} // namespace tol::platform
