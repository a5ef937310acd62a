// SPDX-License-Identifier: MIT
#include "Chapters.h"
#include "support/FileBytes.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace tol::test {
namespace {

namespace fs = std::filesystem;

const std::string images = "../images/";

/// The names of the pictures that the handbook shows, without folder and ending.
std::set<std::string> shownPictures() {
    std::set<std::string> names;
    for (const fs::path& chapter : chapters())
        for (const std::string& target : targetsIn(bytesOf(chapter)))
            if (target.starts_with(images))
                names.insert(fs::path(target).stem());
    return names;
}

std::string allTests() {
    std::string sources;
    for (const fs::path& file : filesBelow("tests", {".cpp"}))
        sources += bytesOf(file);
    return sources;
}

/// Whether the file is there, and the heading where one is named.
bool leadsSomewhere(const fs::path& chapter, const std::string& target) {
    const auto hash = std::min(target.find('#'), target.size());
    const fs::path file = hash == 0 ? chapter : chapter.parent_path() / target.substr(0, hash);
    return fs::exists(file) &&
           (hash == target.size() || anchorsIn(bytesOf(file)).contains(target.substr(hash + 1)));
}

TEST(Handbook, EveryLinkLeadsSomewhere) {
    for (const fs::path& chapter : chapters())
        for (const std::string& target : targetsIn(bytesOf(chapter)))
            EXPECT_TRUE(leadsSomewhere(chapter, target)) << nameOf(chapter) << ": " << target;
}

TEST(Handbook, ItsContentsNameEveryChapter) {
    const fs::path contents = sourceFolder() / "docs/handbook/README.md";
    const auto targets = targetsIn(bytesOf(contents));
    for (const fs::path& chapter : chapters())
        EXPECT_TRUE(chapter == contents || std::ranges::count(targets, chapter.filename().string()) > 0)
            << nameOf(chapter);
}

TEST(Handbook, TheReadmeLeadsToIt) {
    EXPECT_THAT(targetsIn(bytesOf(sourceFolder() / "README.md")),
                testing::Contains("docs/handbook/README.md"));
}

TEST(Handbook, EveryPictureIsShown) {
    const auto shown = shownPictures();
    for (const fs::path& picture : filesBelow("docs/images", {".png"}))
        EXPECT_TRUE(shown.contains(picture.stem())) << nameOf(picture) << " stands in no chapter";
}

TEST(Handbook, EveryPictureIsMadeByATest) {
    const std::string tests = allTests();
    for (const std::string& name : shownPictures())
        EXPECT_NE(tests.find('"' + name + '"'), std::string::npos) << "no test keeps a picture " << name;
}

} // namespace
} // namespace tol::test
