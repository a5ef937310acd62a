// SPDX-License-Identifier: MIT
#include "SearchTest.h"

#include "data/OpenTable.h"
#include "forms/windows/LoadedForms.h"
#include "runtime/Conversions.h"

#include <fmt/format.h>

#include <QLabel>
#include <QTimer>

namespace tol::test {

using search_print::SearchDescription;

SearchTest::SearchTest()
    : table("PARTS.MDB", "PARTS",
            {{"GRP", data::dbText, 3},
             {"CODE", data::dbText, 8},
             {"NAME", data::dbText, 40},
             {"PRICE", data::dbDouble},
             {"REMARKS", data::dbText, 20}},
            {{"CODE", {"CODE"}},
             {"NAME", {"NAME"}},
             {"PRICE", {"PRICE"}},
             {"GROUPCODE", {"GRP", "CODE"}},
             {"GROUPNAME", {"GRP", "NAME"}}}) {
    owner.resize(900, 700);
    owner.show();
}

SearchDescription SearchTest::parts() {
    return {.DBName = "PARTS",
            .TableName = "PARTS",
            .IndexList = "CODE|NAME|PRICE|",
            .WindowTitle = "Search Parts",
            .SearchTitle = "All Parts",
            .FieldList = "CODE|NAME|PRICE|REMARKS",
            .FormatList = "C|C|N###.00|C",
            .SizeList = "8|40|6|20",
            .TitleList = "Code|Name|Price|Remarks",
            .WidthList = "1000|3000|900|1500",
            .AlignList = "2|0|1|0"};
}

SearchDescription SearchTest::partsOf(const std::string& group) {
    SearchDescription description = parts();
    description.IndexList = "GROUPCODE|GROUPNAME";
    description.KeyField1 = "GRP";
    description.KeyValue1 = group;
    return description;
}

void SearchTest::addNumbered(int count, const std::string& group) const {
    std::vector<TestTable::Row> rows;
    for (int number = 1; number <= count; ++number)
        rows.push_back({group, fmt::format("P{:02}", number), fmt::format("NAME {:02}", number),
                        static_cast<double>(number), "-"});
    table.add(rows);
}

std::string SearchTest::search(const SearchDescription& description, const std::function<void()>& act) {
    return search([&] { return vdSearch(description); }, act);
}

std::string SearchTest::search(const std::function<std::string()>& open, const std::function<void()>& act) {
    QTimer untilShown;
    QObject::connect(&untilShown, &QTimer::timeout, [&] {
        QWidget* window = forms::LoadedForms::find("frmvdSearch");
        if (window == nullptr || !window->isVisible())
            return; // a box comes before it
        untilShown.stop();
        desk = std::make_unique<WindowDriver>(*window);
        act();
        if (window == forms::LoadedForms::find("frmvdSearch"))
            window->close();
        desk.reset();
    });
    untilShown.start(0);
    std::string result = open();
    EXPECT_FALSE(untilShown.isActive()) << "the window did not come up";
    return result;
}

std::vector<QString> SearchTest::shownLabels() const {
    std::vector<QString> labels;
    for (const QString label : {"lblCOL0", "lblCOL1", "lblCol2", "lblCol3", "lblCol4", "lblCOL5"})
        if (desk->isShown(label + "(0)"))
            labels.push_back(label);
    return labels;
}

std::vector<std::string> SearchTest::page() const {
    std::vector<std::string> rows;
    for (const std::string& row : desk->rows(shownLabels())) {
        QStringList captions;
        for (const QString& caption : QString::fromStdString(row).split('|'))
            captions.push_back(caption.trimmed());
        rows.push_back(captions.join('|').toStdString());
    }
    while (!rows.empty() && rows.back().find_first_not_of('|') == std::string::npos)
        rows.pop_back();
    return rows;
}

int SearchTest::highlight() const {
    const std::vector<QString> labels = shownLabels();
    const std::vector<int> rows = desk->highlighted(labels.front());
    EXPECT_EQ(rows.size(), 1U);
    for (const QString& label : labels)
        EXPECT_EQ(rows, desk->highlighted(label));
    return rows.empty() ? -1 : rows.front();
}

std::string SearchTest::chosen() const {
    const std::vector<std::string> rows = page();
    const auto row = static_cast<std::size_t>(highlight());
    return row < rows.size() ? rows[row] : std::string();
}

std::string SearchTest::codeAt(const std::string& mark) {
    data::OpenTable parts("test", "PARTS.MDB", "PARTS");
    parts.rows.Bookmark(mark);
    return runtime::toText(parts.rows.Fields("CODE").Value());
}

QRgb SearchTest::titleColor(int column) const {
    const auto picture = desk->control(QString("lblHCOL%1").arg(column)).grab().toImage();
    return picture.pixel(picture.width() / 2, 1);
}

void SearchTest::press(Qt::Key key, int times) const {
    for (int time = 0; time < times; ++time)
        desk->press(key);
}

void SearchTest::type(const QString& letters) const {
    for (const QChar letter : letters)
        desk->press(letter == ' ' ? Qt::Key_Space : static_cast<Qt::Key>(letter.toUpper().unicode()));
}

void SearchTest::clickRow(int row, const QString& label) const {
    desk->click(QString("%1(%2)").arg(label).arg(row));
}

} // namespace tol::test
