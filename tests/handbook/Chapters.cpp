// SPDX-License-Identifier: MIT
#include "Chapters.h"

#include <algorithm>
#include <cctype>
#include <regex>
#include <sstream>

namespace tol::test {

namespace fs = std::filesystem;

fs::path sourceFolder() {
    return TOL_SOURCE_FOLDER;
}

std::string nameOf(const fs::path& file) {
    return file.lexically_relative(sourceFolder());
}

std::vector<fs::path> filesBelow(std::string_view folder, const std::set<std::string>& endings) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(sourceFolder() / folder))
        if (entry.is_regular_file() && endings.contains(entry.path().extension()))
            files.push_back(entry.path());
    std::ranges::sort(files);
    return files;
}

std::vector<fs::path> chapters() {
    return filesBelow("docs/handbook", {".md"});
}

std::vector<std::string> targetsIn(const std::string& chapter) {
    static const std::regex link(R"(\]\(([^)\s]+)\))");
    std::vector<std::string> targets;
    for (std::sregex_iterator found(chapter.begin(), chapter.end(), link), none; found != none; ++found)
        targets.push_back((*found)[1]);
    return targets;
}

namespace {

std::string anchorOf(const std::string& heading) {
    std::string anchor;
    for (const char c : heading)
        if (std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '-' || c == '_')
            anchor += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        else if (c == ' ')
            anchor += '-';
    return anchor;
}

} // namespace

std::set<std::string> anchorsIn(const std::string& chapter) {
    std::set<std::string> anchors;
    std::istringstream lines(chapter);
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with('#'))
            anchors.insert(anchorOf(line.substr(line.find_first_not_of("# "))));
    return anchors;
}

std::string words(std::string_view text) {
    static constexpr std::string_view marks = "*`>|\\";
    std::string result;
    for (const char c : text) {
        const bool blank = std::isspace(static_cast<unsigned char>(c)) != 0;
        if (blank && !result.empty() && result.back() != ' ')
            result += ' ';
        else if (!blank && marks.find(c) == std::string_view::npos)
            result += c;
    }
    if (result.ends_with(' '))
        result.pop_back();
    return result;
}

} // namespace tol::test
