// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace tol::test {

/// The folder of all sources.
std::filesystem::path sourceFolder();
/// A file's path as seen from that folder.
std::string nameOf(const std::filesystem::path& file);
/// Every file below a folder of the sources with one of these endings, in the order of their names.
std::vector<std::filesystem::path> filesBelow(std::string_view folder, const std::set<std::string>& endings);
/// The chapters of the handbook, its contents among them.
std::vector<std::filesystem::path> chapters();
/// What `[...](target)` and `![...](target)` name in a chapter, in their order.
std::vector<std::string> targetsIn(const std::string& chapter);
/// The anchors of a chapter's headings, as links name them: "while-you-edit".
std::set<std::string> anchorsIn(const std::string& chapter);
/// The words of a text: without marks of Markdown, a single blank between two of them.
std::string words(std::string_view text);

} // namespace tol::test
