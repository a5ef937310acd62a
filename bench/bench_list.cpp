// SPDX-License-Identifier: MIT
// A list over a large table against the bare prepared statements: a Down key with the fill of its row, and
// opening the list with its last record found. Usage: bench_list [rows]

#include "Bare.h"
#include "Ratio.h"
#include "WideTable.h"
#include "data/DBEngine.h"
#include "data/sqlite/SqliteEngine.h"
#include "forms/events/Application.h"
#include "forms/events/WindowHost.h"
#include "runtime/KeyCodes.h"
#include "screens/browse/BrowseList.h"

#include <array>
#include <cstdlib>

using namespace tol;
using namespace tol::bench;

namespace {

constexpr int rowsOfPage = 8;
constexpr int columns = 2;
constexpr int keyPresses = 5'000;

/// The captions of a page, kept but not painted.
class Page : public screens::BrowsePage {
  public:
    void setCaption(int row, int column, const std::string& caption) override { at(row, column) = caption; }
    void setHighlight(int row, bool on) override { m_highlights.at(row) = on; }
    void announce(const std::string& text) override { m_announced = text; }
    void takeFocus() override {}
    [[nodiscard]] bool isShown() const override { return true; }

  private:
    std::string& at(int row, int column) {
        return m_captions.at(static_cast<std::size_t>(row) * columns + column);
    }

    std::array<std::string, rowsOfPage * columns> m_captions;
    std::array<bool, rowsOfPage> m_highlights{};
    std::string m_announced;
};

screens::BrowseDescription description() {
    return {
        .index = "TAG",
        .columns = {{"lblTAG", "lblHTAG", "Tag", 900, "TAG"}, {"lblNAME", "lblHNAME", "Name", 3000, "NAME"}},
        .rows = rowsOfPage};
}

double sink = 0;

void walk(Bare& index) {
    while (index.step())
        sink += static_cast<double>(index.number(0) + index.number(1));
    index.reset();
}

/// Each step finds the row behind the one before, and reads it.
void step(Bare& next, int times) {
    for (int tag = 1; tag <= times; ++tag) {
        next.bind(tag);
        next.step();
        sink += static_cast<double>(next.number(0)) + *next.text(1);
        next.reset();
    }
}

} // namespace

int main(int argc, char** argv) {
    const int rows = argc > 1 ? std::atoi(argv[1]) : 1'000'000;
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    forms::Application application("bench");
    forms::WindowHost host;
    data::DBEngine::addEngine(std::make_unique<data::sqlite::SqliteEngine>());
    BenchFolder folder;
    const auto file = folder / "WIDE.MDB";
    makeWideTable(file, rows, true);

    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksBENCH");
    data::Database database = workspace.OpenDatabase(file.string());
    const auto open = [&] { return database.OpenRecordset("WIDE"); };
    data::Recordset wide;
    Page page;
    fmt::print("A list of {} rows, {} on the page, ordered by an index\n", rows, rowsOfPage);

    Bare index(file, "SELECT TAG, MSysKey FROM WIDE ORDER BY TAG, MSysKey");
    const auto openList = [&] {
        wide = open();
        screens::BrowseList(page, description(), wide, open, {}).BrowseLoad();
    };
    ratio("Opening the list", 7, openList, [&] { walk(index); });

    screens::BrowseList list(page, description(), wide, open, {});
    list.BrowseLoad();
    Bare next(file, "SELECT TAG, NAME FROM WIDE WHERE TAG > ? ORDER BY TAG, MSysKey LIMIT 1");
    const auto pressDown = [&] {
        list.BrowseMove(runtime::keyHome);
        for (int press = 0; press < keyPresses; ++press)
            list.BrowseMove(runtime::keyDown);
    };
    ratio("5,000 Down keys", 9, pressDown, [&] { step(next, keyPresses); });
    return sink == 0 ? 1 : 0;
}
