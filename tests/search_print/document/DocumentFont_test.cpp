// SPDX-License-Identifier: MIT
#include "search_print/document/DocumentFont.h"

#include <gtest/gtest.h>

#include <QFontInfo>
#include <QFontMetricsF>

namespace tol::search_print {
namespace {

TEST(DocumentFont, IsAnInstalledSubstitute) {
    for (const char* name : {"Arial", "Times New Roman", "Courier New"}) {
        const DocumentFont font({name, 8, false});
        EXPECT_EQ(QFontInfo(font.font()).family().toStdString(), substituteFamily(name));
    }
    EXPECT_EQ(substituteFamily("Arial"), "Liberation Sans");
    EXPECT_EQ(substituteFamily("Times New Roman"), "Liberation Serif");
    EXPECT_EQ(substituteFamily("Courier New"), "Liberation Mono");
    EXPECT_EQ(substituteFamily("DejaVu Sans"), "DejaVu Sans");
}

// The widths of the original fonts: 1229/2048 of the size for each character of the fixed one, 1139/2048 for
// the digits of the plain one, 1024/2048 for those with serifs.
TEST(DocumentFont, HasTheWidthsOfTheNamedFonts) {
    EXPECT_NEAR(DocumentFont({"Courier New", 8, false}).width("0123456789"), 10 * 160 * 1229 / 2048.0, 0.5);
    EXPECT_NEAR(DocumentFont({"Courier New", 6, true}).width("Wi"), 2 * 120 * 1229 / 2048.0, 0.2);
    EXPECT_NEAR(DocumentFont({"Arial", 8, false}).width("0123456789"), 10 * 160 * 1139 / 2048.0, 0.5);
    EXPECT_NEAR(DocumentFont({"Times New Roman", 18, false}).width("0123456789"), 10 * 360 * 0.5, 0.5);
}

TEST(DocumentFont, MeasuresWhatIsPainted) {
    for (const char* name : {"Arial", "Times New Roman", "Courier New"}) {
        const DocumentFont font({name, 12, false});
        for (const char* text : {"", " ", "  trailing  ", "AVATAR To", "office fluff ffi", "|~{}", "a b"})
            EXPECT_NEAR(font.width(text), QFontMetricsF(font.font()).horizontalAdvance(text), 0.6)
                << name << ": " << text;
    }
}

TEST(DocumentFont, MeasuresOtherLettersAndControls) {
    const DocumentFont font({"Courier New", 8, false});
    EXPECT_NEAR(font.width("ÄÖÜß"), font.width("AOUs"), 0.5);
    EXPECT_DOUBLE_EQ(font.width("A\nB\tC\x7F"), font.width("A B C "));
    EXPECT_NEAR(font.width("Ä\nB"), font.width("A B"), 0.5);
}

TEST(DocumentFont, HasTheHeightOfItsSize) {
    const DocumentFont font({"Arial", 10, false});
    EXPECT_NEAR(font.height(), 200 * 1.117, 2);
    EXPECT_NEAR(font.ascent(), 200 * 0.905, 1);
}

} // namespace
} // namespace tol::search_print
