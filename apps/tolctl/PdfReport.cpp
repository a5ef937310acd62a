// SPDX-License-Identifier: MIT
#include "tolctl/PdfReport.h"

#include "search_print/document/PdfFile.h"
#include "tolctl/Interrupt.h"
#include "tolctl/ProgressLine.h"

#include <fmt/format.h>

#include <QGuiApplication>

#include <array>

namespace tol::ctl {
namespace {

/// What Qt has to say about the machine is no news for who asked for a file.
void dropMessage(QtMsgType, const QMessageLogContext&, const QString&) {}

/// The report in a terminal: the line of progress, no buttons.
class PdfView : public search_print::ReportView {
  public:
    explicit PdfView(ProgressLine& progress) : m_progress(progress) {}

    void showState(search_print::ReportState) override {}
    void setProcess(const std::string& text) override {
        m_progress.show([&] { return text; });
    }
    bool keepPrinting() override { return !interrupted(); }

  private:
    ProgressLine& m_progress;
};

/// Fonts are looked up and measured by Qt, which wants its application object; the platform without a screen
/// is part of it.
class FontSystem {
  public:
    FontSystem() = default;
    FontSystem(const FontSystem&) = delete;
    FontSystem& operator=(const FontSystem&) = delete;
    ~FontSystem() { qInstallMessageHandler(m_handlerBefore); }

  private:
    QtMessageHandler m_handlerBefore = qInstallMessageHandler(dropMessage);
    int m_count = 3;
    std::array<char, 8> m_name{"tolctl"};
    std::array<char, 10> m_option{"-platform"};
    std::array<char, 10> m_platform{"offscreen"};
    std::array<char*, 4> m_words{m_name.data(), m_option.data(), m_platform.data(), nullptr};
    QGuiApplication m_application{m_count, m_words.data()};
};

} // namespace

void writePdfReport(const std::string& file, ProgressLine& progress, const DrawReport& draw) {
    const FontSystem fonts;
    search_print::VSPrinter printer;
    PdfView view(progress);
    draw(view, printer);
    stopIfInterrupted();
    progress.clear();
    if (printer.PageCount() == 0)
        throw Failure{ExitStatus::CouldNotStart,
                      fmt::format("the report has no page; \"{}\" was not written.", file)};
    search_print::writePdf(printer.document(), printer.document().pages, file, printer.documentTitle());
}

} // namespace tol::ctl
