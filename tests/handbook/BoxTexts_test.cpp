// SPDX-License-Identifier: MIT
#include "Chapters.h"
#include "SourceTexts.h"
#include "support/FileBytes.h"

#include <gmock/gmock.h>

#include <sstream>

namespace tol::test {
namespace {

namespace fs = std::filesystem;

const char* const messages = "docs/handbook/messages.md";
const char* const update = "docs/handbook/update.md"; // tells what the log says
const char* const listOfOthers = "tests/handbook/texts-of-no-box.txt";

/// All sources but those of the database, whose errors have numbers and are explained by them.
std::vector<fs::path> sources() {
    std::vector<fs::path> files = filesBelow("apps/tol", {".cpp", ".h"});
    for (const fs::path& file : filesBelow("src", {".cpp", ".h"}))
        if (!nameOf(file).starts_with("src/data/"))
            files.push_back(file);
    return files;
}

bool isSource(const std::string& line) {
    return line.starts_with("src/") || line.starts_with("apps/");
}

/// Texts of windows and reports, which no message box shows, and sources of nothing else.
std::set<std::string> setAside() {
    std::set<std::string> lines;
    std::istringstream file(bytesOf(sourceFolder() / listOfOthers));
    for (std::string line; std::getline(file, line);)
        if (!line.empty() && !line.starts_with('#'))
            lines.insert(line);
    return lines;
}

/// What a file may show in a box. A text with an access key is a button's or a menu's.
std::vector<std::string> boxTextsOf(const fs::path& file) {
    std::vector<std::string> texts = sentencesIn(bytesOf(file));
    std::erase_if(texts, [](const std::string& text) { return text.find('&') != std::string::npos; });
    return texts;
}

TEST(BoxTexts, EachStandsInTheHandbook) {
    const std::string told = words(bytesOf(sourceFolder() / messages) + bytesOf(sourceFolder() / update));
    const auto others = setAside();
    for (const fs::path& file : sources())
        for (const std::string& text : boxTextsOf(file))
            EXPECT_TRUE(others.contains(nameOf(file)) || others.contains(text) ||
                        told.find(words(text)) != std::string::npos)
                << nameOf(file) << ": \"" << text << "\" is told neither in " << messages
                << " nor, if no box shows it, in " << listOfOthers;
}

TEST(BoxTexts, NothingIsSetAsideThatIsGone) {
    std::set<std::string> present;
    for (const fs::path& file : sources()) {
        present.insert(nameOf(file));
        for (const std::string& text : boxTextsOf(file))
            present.insert(text);
    }
    EXPECT_THAT(present, testing::IsSupersetOf(setAside()));
}

TEST(BoxTexts, NoSourceIsSetAsideThatShowsABox) {
    for (const std::string& line : setAside())
        EXPECT_FALSE(isSource(line) && bytesOf(sourceFolder() / line).find("Box(") != std::string::npos)
            << line;
}

} // namespace
} // namespace tol::test
