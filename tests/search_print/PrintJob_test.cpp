// SPDX-License-Identifier: MIT
#include "search_print/PrintJob.h"

#include "PrintedFolder.h"
#include "support/Program.h"
#include "support/TestHost.h"

#include <gmock/gmock.h>

#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

#include <algorithm>

namespace tol::test {
namespace {

using namespace search_print;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// Printing by "P" through the platform's dialog. No printer is needed: the dialog offers a PDF file.
class PrintJobTest : public testing::Test {
  protected:
    PrintJobTest() { folder.addRows(120); }

    /// Presses P and does something in the dialog, then presses one of its buttons, and looks at the window.
    void print(
        const std::function<void(QPrintDialog&)>& choose, const char* button = "&Print",
        const std::function<void(ReportWindow&)>& look = [](ReportWindow& window) {
            EXPECT_TRUE(window.isVisible());
        }) {
        bool dialogUp = false;
        EXPECT_TRUE(withReport(namesAndPlaces(), [&](ReportWindow& window) {
            QTimer wait;
            wait.callOnTimeout([&] {
                auto* dialog = dynamic_cast<QPrintDialog*>(QApplication::activeModalWidget());
                if (dialog == nullptr || dialogUp)
                    return;
                dialogUp = true;
                choose(*dialog);
                for (QPushButton* candidate : dialog->findChildren<QPushButton*>())
                    if (candidate->text() == button)
                        candidate->click();
                if (dialog->isVisible())
                    dialog->reject();
            });
            wait.start(5);
            QTest::keyClick(&window, Qt::Key_P);
            look(window);
        }));
        EXPECT_TRUE(dialogUp);
    }
    static void printTo(QPrintDialog& dialog, const std::filesystem::path& file) {
        auto& name = *dialog.findChild<QLineEdit*>("filename");
        name.selectAll();
        QTest::keyClicks(&name, QString::fromStdString(file.string()));
    }
    [[nodiscard]] std::string textOf(const char* file) const {
        Program program("/usr/bin/pdftotext", {"-layout", file, "-"}, folder.path());
        EXPECT_EQ(program.wait(), 0) << program.err();
        return program.out();
    }

    PrintedFolder folder;
    TestHost person;
};

TEST_F(PrintJobTest, OffersAPdfFileNamedAfterTheReport) {
    print(
        [&](QPrintDialog& dialog) {
            EXPECT_THAT(dialog.findChild<QLineEdit*>("filename")->text().toStdString(),
                        EndsWith("/List of Names.pdf"));
        },
        "Cancel");
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(PrintJobTest, PrintsAllPagesToTheFile) {
    print([&](QPrintDialog& dialog) { printTo(dialog, folder / "out.pdf"); });
    const std::string text = textOf("out.pdf");
    EXPECT_THAT(text, HasSubstr("List of Names"));
    EXPECT_THAT(text, HasSubstr("ROW 001"));
    EXPECT_THAT(text, HasSubstr("ROW 120"));
    EXPECT_THAT(text, HasSubstr("C:\\SITES\\120"));
    EXPECT_EQ(std::ranges::count(text, '\f'), 3);
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(PrintJobTest, PrintsThePagesAskedFor) {
    print([&](QPrintDialog& dialog) {
        printTo(dialog, folder / "out.pdf");
        dialog.findChild<QRadioButton*>("printRange")->setChecked(true);
        dialog.findChild<QSpinBox*>("from")->setValue(2);
        dialog.findChild<QSpinBox*>("to")->setValue(2);
    });
    const std::string text = textOf("out.pdf");
    EXPECT_THAT(text, HasSubstr("ROW 058"));
    EXPECT_THAT(text, Not(HasSubstr("ROW 057")));
    EXPECT_EQ(std::ranges::count(text, '\f'), 1);
}

TEST_F(PrintJobTest, TellsHowFarItHasCome) {
    QStringList told;
    person.onYield = [&] {
        if (auto* window = dynamic_cast<ReportWindow*>(QApplication::activeModalWidget()))
            if (const QString line = window->lblProcess().text() + " " + window->cmdBegin().text();
                told.isEmpty() || told.back() != line)
                told.push_back(line);
    };
    QString caption, process;
    print(
        [&](QPrintDialog& dialog) {
            auto& window = dynamic_cast<ReportWindow&>(*dialog.parentWidget());
            caption = window.cmdBegin().text();
            process = window.lblProcess().text();
            printTo(dialog, folder / "out.pdf");
        },
        "&Print",
        [&](ReportWindow& window) {
            EXPECT_EQ(window.cmdBegin().text(), caption);
            EXPECT_EQ(window.lblProcess().text(), process);
        });
    EXPECT_EQ(told, QStringList({"Printing Page: 1 of 3 &Cancel", "Printing Page: 2 of 3 &Cancel",
                                 "Printing Page: 3 of 3 &Cancel"}));
}

TEST_F(PrintJobTest, StoppedByItsButtonItLeavesTheFileAsItWas) {
    folder.write("out.pdf", "what was there");
    QTimer agree; // to the dialog's question whether the file may be overwritten
    agree.callOnTimeout([] {
        if (auto* question = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget()))
            question->button(QMessageBox::Yes)->click();
    });
    agree.start(5);
    person.onYield = [&] {
        auto* window = dynamic_cast<ReportWindow*>(QApplication::activeModalWidget());
        if (window != nullptr && window->lblProcess().text() == "Printing Page: 2 of 3")
            QTest::mouseClick(&window->cmdBegin(), Qt::LeftButton);
    };
    print([&](QPrintDialog& dialog) { printTo(dialog, folder / "out.pdf"); }, "&Print",
          [](ReportWindow& window) {
              EXPECT_EQ(window.lblProcess().text(), "Printing STOPPED BY USER (INCOMPLETE)");
              EXPECT_EQ(window.cmdBegin().text(), "&Max View");
              EXPECT_EQ(window.printer().PageCount(), 3);
          });
    EXPECT_EQ(folder.read("out.pdf"), "what was there");
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(PrintJobTest, LeftWhileItPrintsTheWindowGoesWhenThatHasStopped) {
    person.onYield = [&] {
        auto* window = dynamic_cast<ReportWindow*>(QApplication::activeModalWidget());
        if (window != nullptr && window->lblProcess().text() == "Printing Page: 2 of 3")
            QTest::mouseClick(&window->CmdExit(), Qt::LeftButton);
    };
    print([&](QPrintDialog& dialog) { printTo(dialog, folder / "out.pdf"); }, "&Print",
          [](ReportWindow& window) { EXPECT_FALSE(window.isLoaded()); });
    EXPECT_FALSE(std::filesystem::exists(folder / "out.pdf"));
}

TEST_F(PrintJobTest, NothingIsWrittenWhenCancelled) {
    print([&](QPrintDialog& dialog) { printTo(dialog, folder / "out.pdf"); }, "Cancel");
    EXPECT_FALSE(std::filesystem::exists(folder / "out.pdf"));
}

TEST_F(PrintJobTest, TellsWhenTheFileCanNotBeWritten) {
    QTimer agree; // to the dialog's question whether the file may be overwritten
    agree.callOnTimeout([] {
        if (auto* question = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget()))
            question->button(QMessageBox::Yes)->click();
    });
    agree.start(5);
    print([&](QPrintDialog& dialog) { printTo(dialog, "/dev/full"); });
    EXPECT_THAT(person.texts(), ElementsAre("The file '/dev/full' can't be written."));
    EXPECT_EQ(person.boxes[0].title, "Printer Error");
}

/// A document of an upright and a wide page on Letter paper, painted as on a printer.
class PaintedOnPrinter : public testing::Test {
  protected:
    PaintedOnPrinter() {
        document.StartDoc();
        document.FontName("Courier New");
        document.FontSize(8);
        document.CurrentX(1440);
        document.CurrentY(1440);
        document.Text("upright");
        document.Orientation(orientationLandscape);
        document.NewPage();
        document.CurrentX(1440);
        document.Text("wide");
        document.EndDoc();
    }

    /// Word boxes and page sizes of what came out of the printer.
    std::string printedOn(QPageSize::PageSizeId paper) {
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName("paper.pdf");
        printer.setPageSize(QPageSize(paper));
        EXPECT_TRUE(printOn(printer, document, document.document().pages));
        Program program("/usr/bin/pdftotext", {"-bbox", "paper.pdf", "-"}, folder.path());
        EXPECT_EQ(program.wait(), 0) << program.err();
        return program.out();
    }

    TempFolder folder;
    VSPrinter document{paperLetter};
};

TEST_F(PaintedOnPrinter, KeepsPlacesAndTurnsThePaper) {
    const std::string words = printedOn(QPageSize::Letter);
    EXPECT_THAT(words, HasSubstr("<page width=\"612.000000\" height=\"792.000000\">"));
    EXPECT_THAT(words, HasSubstr("<page width=\"792.000000\" height=\"612.000000\">"));
    EXPECT_THAT(words, testing::ContainsRegex("xMin=\"7[12][.][0-9]+\" yMin=\"7[0-9][.][^>]*>upright<"));
    EXPECT_THAT(words, testing::ContainsRegex("xMin=\"7[12][.][0-9]+\" yMin=\"7[0-9][.][^>]*>wide<"));
}

TEST_F(PaintedOnPrinter, ShrinksPagesToSmallerPaper) {
    const std::string words = printedOn(QPageSize::A6); // less than half as wide
    EXPECT_THAT(words, HasSubstr("<page width=\"297."));
    EXPECT_THAT(words, testing::ContainsRegex("xMin=\"3[45][.][0-9]+\" yMin=\"3[0-9][.][^>]*>upright<"));
}

TEST_F(PaintedOnPrinter, CallsTheJobOffWhenItIsToStop) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName("paper.pdf");
    std::vector<std::string> told;
    const auto stopAtTheSecond = [&](int page, int pages) {
        told.push_back(std::to_string(page) + "/" + std::to_string(pages));
        return page < 2;
    };
    printOn(printer, document, document.document().pages, stopAtTheSecond);
    EXPECT_THAT(told, ElementsAre("1/2", "2/2"));
    EXPECT_NE(printer.printerState(), QPrinter::Active);
}

TEST_F(PaintedOnPrinter, TellsWhenThePrinterTakesNoJob) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName("missing/paper.pdf");
    EXPECT_FALSE(printOn(printer, document, document.document().pages));
}

} // namespace
} // namespace tol::test
