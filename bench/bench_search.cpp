// SPDX-License-Identifier: MIT
// A letter typed in the search window over a large table, its rows painted, against a bare prepared seek and
// the reads of the twelve rows; and the same in a key range of 100,000 rows against one of 100. Usage:
// bench_search [rows]

#include "Bare.h"
#include "Ratio.h"
#include "WideTable.h"
#include "data/DBEngine.h"
#include "data/sqlite/SqliteEngine.h"
#include "data/sqlite/connection/TextCollation.h"
#include "forms/events/Application.h"
#include "forms/events/WindowHost.h"
#include "forms/windows/LoadedForms.h"
#include "search_print/vdSearch.h"

#include <QKeyEvent>
#include <QTimer>
#include <QWidget>

#include <cstdlib>
#include <fmt/format.h>
#include <string>
#include <vector>

using namespace tol;
using namespace tol::bench;

namespace {

constexpr int largeRange = 100'000, smallRange = 100;

/// Spread over the letters.
std::string code(int row) {
    return fmt::format("{}{:06}", static_cast<char>('A' + row % 26), row);
}

/// A large and a small group, and the rest.
const char* groupOf(int row) {
    return row < largeRange ? "L" : (row < largeRange + smallRange ? "S" : "R");
}

void makeItems(const std::filesystem::path& file, int rows) {
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksBENCH");
    data::Database database = workspace.CreateDatabase(file.string());
    database.CreateTable({.name = "ITEMS",
                          .fields = {{.name = "GRP", .type = data::dbText, .size = 3},
                                     {.name = "CODE", .type = data::dbText, .size = 8},
                                     {.name = "NAME", .type = data::dbText, .size = 50}},
                          .indexes = {{.name = "CODE", .fields = {"CODE"}},
                                      {.name = "GROUPCODE", .fields = {"GRP", "CODE"}}}});
    data::Recordset table = database.OpenRecordset("ITEMS");
    for (int row = 0; row < rows; ++row) {
        table.AddNew();
        table.Fields("GRP").Value(groupOf(row));
        table.Fields("CODE").Value(code(row));
        table.Fields("NAME").Value(fmt::format("Item number {}", row));
        table.Update();
    }
}

/// By code; of one group or, without, of the whole table.
search_print::SearchDescription description(const char* group) {
    search_print::SearchDescription search{.DBName = "ITEMS",
                                           .TableName = "ITEMS",
                                           .IndexList = group == nullptr ? "CODE|" : "GROUPCODE|",
                                           .FieldList = "CODE|NAME",
                                           .FormatList = "C|C",
                                           .SizeList = "8|50",
                                           .TitleList = "Code|Description",
                                           .WidthList = "1000|6000",
                                           .AlignList = "0|0"};
    if (group != nullptr) {
        search.KeyField1 = "GRP";
        search.KeyValue1 = group;
    }
    return search;
}

/// A search window while one works in it.
void withSearch(const search_print::SearchDescription& search, const std::function<void(QWidget&)>& work) {
    QTimer::singleShot(0, [&] {
        QWidget& window = *forms::LoadedForms::find("frmvdSearch");
        work(window);
        window.close();
    });
    search_print::vdSearch(search);
}

/// A key going down, until its rows are painted.
void press(QWidget& window, int key) {
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(window.focusWidget(), &down);
    QCoreApplication::processEvents();
}

/// Types each word and takes it away again; the seconds that the letters took.
double type(const search_print::SearchDescription& search, const std::vector<std::string>& words) {
    double taken = 0;
    withSearch(search, [&](QWidget& window) {
        press(window, Qt::Key_Home);
        for (const std::string& word : words) {
            taken += seconds([&] {
                for (const char letter : word)
                    press(window, letter);
            });
            for (std::size_t letter = 0; letter < word.size(); ++letter)
                press(window, Qt::Key_Backspace);
        }
    });
    return taken;
}

double sink = 0;

double seek(Bare& rows, const std::vector<std::string>& words) {
    return seconds([&] {
        for (const std::string& word : words)
            for (std::size_t letter = 1; letter <= word.size(); ++letter) {
                rows.bind(word.substr(0, letter));
                while (rows.step())
                    sink += *rows.text(0) + *rows.text(1);
                rows.reset();
            }
    });
}

std::vector<std::string> codes(int rows) {
    std::vector<std::string> words;
    for (int word = 0; word < 60; ++word)
        words.push_back(code(static_cast<int>(std::int64_t{word} * 104'729 % rows)));
    return words;
}

std::vector<std::string> singleLetters() {
    std::vector<std::string> words;
    for (int word = 0; word < 400; ++word)
        words.emplace_back(1, static_cast<char>('A' + word % 20));
    return words;
}

} // namespace

int main(int argc, char** argv) {
    const int rows = argc > 1 ? std::atoi(argv[1]) : 1'000'000;
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    forms::Application application("bench");
    QApplication::setQuitOnLastWindowClosed(false);
    forms::WindowHost host;
    data::DBEngine::addEngine(std::make_unique<data::sqlite::SqliteEngine>());
    BenchFolder folder;
    const auto file = folder / "ITEMS.MDB";
    makeItems(file, rows);
    fmt::print("A search over {} rows, twelve of them on the page\n", rows);

    Bare twelve(file,
                "SELECT CODE, NAME FROM ITEMS WHERE CODE >= ? COLLATE TOLTEXT "
                "ORDER BY CODE COLLATE TOLTEXT, MSysKey LIMIT 12",
                data::sqlite::registerTextCollation);
    const std::vector<std::string> words = codes(rows);
    ratioOf(
        "420 letters, rows painted", 9, [&] { return type(description(nullptr), words); },
        [&] { return seek(twelve, words); });
    const std::vector<std::string> single = singleLetters();
    ratioOf(
        "400 letters in a range of 100,000 rows", 9, [&] { return type(description("L"), single); },
        [&] { return type(description("S"), single); });
    return sink == 0 ? 1 : 0;
}
