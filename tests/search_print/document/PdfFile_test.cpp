// SPDX-License-Identifier: MIT
#include "search_print/document/PdfFile.h"

#include "Drawn.h"
#include "runtime/RuntimeError.h"
#include "support/Program.h"
#include "support/Raises.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>

#include <QFile>

namespace tol::test {
namespace {

using namespace search_print;
using testing::HasSubstr;
using testing::StartsWith;

class PdfFile : public testing::Test {
  protected:
    PdfFile() {
        printer.FontName("Courier New");
        for (int page = 1; page <= 3; ++page) {
            printer.NewPage();
            printer.CurrentX(1000);
            printer.CurrentY(2000);
            printer.Text("Zeile " + std::to_string(page) + " für office");
        }
    }

    void write(const std::string& file) const {
        writePdf(printer.document(), printer.document().pages, file, "Über Berichte");
    }
    /// What another program reads in the file.
    [[nodiscard]] std::string tell(const std::vector<std::string>& words) const {
        Program program("/usr/bin/" + words[0], {words.begin() + 1, words.end()}, folder.path());
        EXPECT_EQ(program.wait(), 0) << program.err();
        return program.out();
    }

    TempFolder folder;
    Document printer;
};

TEST_F(PdfFile, HoldsTextsThatCanBeSearched) {
    write("a.pdf");
    const std::string text = tell({"pdftotext", "-layout", "a.pdf", "-"});
    EXPECT_THAT(text, HasSubstr("Zeile 1 für office"));
    EXPECT_THAT(text, HasSubstr("Zeile 3 für office"));
}

TEST_F(PdfFile, StoppedItWritesNothing) {
    std::vector<int> told;
    const auto upToTheSecond = [&](int page, int pages) {
        EXPECT_EQ(pages, 3);
        told.push_back(page);
        return page < 2;
    };
    writePdf(printer.document(), printer.document().pages, folder / "a.pdf", "", upToTheSecond);
    EXPECT_THAT(told, testing::ElementsAre(1, 2));
    EXPECT_FALSE(std::filesystem::exists(folder / "a.pdf"));
    writePdf(printer.document(), printer.document().pages, folder / "a.pdf", "",
             [&](int page, int) { return told.push_back(page), true; });
    EXPECT_THAT(told, testing::ElementsAre(1, 2, 1, 2, 3));
    EXPECT_TRUE(std::filesystem::exists(folder / "a.pdf"));
}

TEST_F(PdfFile, HasThePagesWithTheirSizes) {
    printer.Orientation(orientationLandscape);
    printer.NewPage();
    write("a.pdf");
    const std::string info = tell({"pdfinfo", "-f", "1", "-l", "9", "a.pdf"});
    EXPECT_THAT(info, HasSubstr("Über Berichte"));
    EXPECT_THAT(info, HasSubstr("Pages:           4"));
    EXPECT_THAT(info, HasSubstr("Page    3 size:  595 x 842 pts (A4)"));
    EXPECT_THAT(info, HasSubstr("Page    4 size:  842 x 595 pts (A4)"));
}

TEST_F(PdfFile, PlacesTextByTwips) {
    write("a.pdf");
    const std::string boxes = tell({"pdftotext", "-bbox", "-l", "1", "a.pdf", "-"});
    EXPECT_THAT(boxes, HasSubstr("<word xMin=\"50.0")); // 1000 twips are 50 points
}

TEST_F(PdfFile, CarriesItsFonts) {
    write("a.pdf");
    EXPECT_THAT(tell({"pdffonts", "a.pdf"}), HasSubstr("LiberationMono"));
}

TEST_F(PdfFile, CanHoldAPartOfTheDocument) {
    writePdf(printer.document(), std::span(printer.document().pages).subspan(1, 1), "a.pdf", "");
    EXPECT_THAT(tell({"pdfinfo", "a.pdf"}), HasSubstr("Pages:           1"));
    EXPECT_THAT(tell({"pdftotext", "a.pdf", "-"}), StartsWith("Zeile 2"));
}

TEST_F(PdfFile, ReplacesAFileOnlyWhenComplete) {
    folder.write("a.pdf", "older");
    write("a.pdf");
    EXPECT_THAT(folder.read("a.pdf"), StartsWith("%PDF-"));
}

TEST_F(PdfFile, TellsWhenItCanNotBeWritten) {
    folder.write("file", "");
    for (const char* name : {"missing/a.pdf", "file/a.pdf", ".", ""}) {
        EXPECT_EQ(errorOf([&] { write(name); }), runtime::errPathAccess) << name;
        EXPECT_EQ(descriptionOf([&] { write(name); }),
                  "The file '" + std::string(name) + "' can't be written.");
    }
}

TEST_F(PdfFile, TellsWhenADeviceHasNoRoomAndLeavesItThere) {
    EXPECT_EQ(errorOf([&] { write("/dev/full"); }), runtime::errPathAccess);
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

} // namespace
} // namespace tol::test
