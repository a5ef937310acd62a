// SPDX-License-Identifier: MIT
#include "EngineTest.h"
#include "ForeignFilesTest.h"
#include "runtime/Conversions.h"
#include "support/SharedData.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tol::test {

using namespace data;
using runtime::Value;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// The public sample database, of which nobody here wrote a line, in a copy.
class Chinook : public ForeignFilesTest {
  protected:
    void SetUp() override {
        const auto original = sharedData("chinook.sqlite");
        if (!original)
            GTEST_SKIP() << "chinook.sqlite is not in the folder of shared data";
        std::filesystem::copy_file(*original, file.path());
        std::filesystem::permissions(file.path(), std::filesystem::perms::owner_write,
                                     std::filesystem::perm_options::add);
        open();
    }

    /// What SQLite's own tools find wrong with the file.
    [[nodiscard]] std::vector<std::string> faults() const {
        return file.rows("SELECT * FROM pragma_integrity_check WHERE integrity_check <> 'ok' "
                         "UNION ALL SELECT \"table\" || rowid FROM pragma_foreign_key_check");
    }

    std::vector<std::string> tableNames() {
        std::vector<std::string> names;
        for (int table = 0; table < database.TableDefs().Count(); ++table)
            names.push_back(database.TableDefs()(table).Name());
        return names;
    }
};

/// A field's value as SQLite shows it.
std::string storedText(const Field& field) {
    const Value value = field.Value();
    if (value.isNull())
        return "NULL";
    if (value.is<runtime::Date>())
        return runtime::isoText(value.get<runtime::Date>());
    if (value.is<runtime::Currency>())
        return runtime::fourDecimals(value.get<runtime::Currency>());
    return runtime::toText(value);
}

std::vector<std::string> storedRows(Recordset& rows) {
    std::vector<std::string> texts;
    for (; !rows.AtEOF(); rows.MoveNext()) {
        std::string text;
        for (int field = 0; field < rows.Fields().Count(); ++field)
            text += (field == 0 ? "" : "|") + storedText(rows.Fields(field));
        texts.push_back(text);
    }
    return texts;
}

/// The query that gives the same texts.
std::string queryOf(const TableDefinition& table) {
    std::string columns;
    for (const FieldDef& field : table.fields) {
        const std::string name = "\"" + field.name + "\"";
        columns += (columns.empty() ? "" : ", ") +
                   (field.type == dbCurrency ? "printf('%.4f', " + name + ")" : name);
    }
    return "SELECT " + columns + " FROM \"" + table.name + "\" NOT INDEXED";
}

} // namespace

TEST_F(Chinook, TellsItsTablesFieldsAndIndexes) {
    EXPECT_THAT(tableNames(), ElementsAre("Album", "Artist", "Customer", "Employee", "Genre", "Invoice",
                                          "InvoiceLine", "MediaType", "Playlist", "PlaylistTrack", "Track"));
    EXPECT_THAT(fieldsOf(database.TableDefs("Track")),
                ElementsAre("TrackId:4/4", "Name:10/200", "AlbumId:4/4", "MediaTypeId:4/4", "GenreId:4/4",
                            "Composer:10/220", "Milliseconds:4/4", "Bytes:4/4", "UnitPrice:5/8"));
    EXPECT_THAT(indexesOf(database.TableDefs("Track")),
                ElementsAre("PrimaryKey", "IFK_TrackAlbumId", "IFK_TrackGenreId", "IFK_TrackMediaTypeId"));
    EXPECT_EQ(database.TableDefs("Employee").Fields()("BirthDate").Type(), dbDate);
    EXPECT_TRUE(database.TableDefs("PlaylistTrack").Indexes()("PrimaryKey").Primary());
    EXPECT_EQ(database.TableDefs("PlaylistTrack").Indexes()("PrimaryKey").Fields().Count(), 2);
}

TEST_F(Chinook, ReadsEveryValueOfEveryRow) {
    std::size_t read = 0;
    for (const std::string& name : tableNames()) {
        Recordset rows = database.OpenRecordset(name);
        const auto wanted = file.rows(queryOf(database.TableDefs(name).definition()));
        EXPECT_EQ(rows.RecordCount(), static_cast<std::int64_t>(wanted.size())) << name;
        EXPECT_EQ(storedRows(rows), wanted) << name;
        read += wanted.size();
    }
    EXPECT_EQ(read, 15607U);
}

TEST_F(Chinook, MeetsEveryRowInEveryIndexAndFindsItByItsKeys) {
    for (const std::string& name : tableNames()) {
        const TableDefinition table = database.TableDefs(name).definition();
        Recordset rows = database.OpenRecordset(name);
        Recordset seeker = database.OpenRecordset(name);
        for (const IndexDef& index : table.indexes) {
            rows.Index(index.name);
            seeker.Index(index.name);
            std::int64_t met = 0;
            int missed = 0;
            for (; !rows.AtEOF(); rows.MoveNext(), ++met) {
                std::vector<Value> keys;
                for (const std::string& field : index.fields)
                    keys.push_back(rows.Fields(field).Value());
                seeker.Seek("=", keys);
                missed += seeker.NoMatch() ? 1 : 0;
            }
            EXPECT_EQ(met, rows.RecordCount()) << name << "." << index.name;
            EXPECT_EQ(missed, 0) << name << "." << index.name;
        }
    }
}

TEST_F(Chinook, StaysSoundWhenItsDefinitionIsChanged) {
    const std::string others =
        "SELECT sql FROM sqlite_schema WHERE tbl_name NOT IN ('Track', 'Customer', 'PlaylistTrack') "
        "AND name NOT LIKE 'MSys%' AND name NOT LIKE 'sqlite_%' ORDER BY name";
    const auto othersBefore = file.rows(others);
    const auto tracks = file.rows("SELECT TrackId, Name, AlbumId FROM Track");
    const auto customers = file.rows("SELECT CustomerId, FirstName, Email FROM Customer");

    TableDef track = database.TableDefs("Track");
    track.Fields().Delete("Composer");     // may be Null: only hidden
    track.Fields().Delete("Milliseconds"); // may not: the table is made anew
    track.Fields().Append(track.CreateField("Rating", dbByte));
    track.Indexes().Delete("IFK_TrackGenreId");
    track.Fields().Delete("GenreId");
    Index byName = track.CreateIndex("ByName");
    byName.Fields().Append(byName.CreateField("Name"));
    track.Indexes().Append(byName);

    TableDef customer = database.TableDefs("Customer");
    customer.Fields().Delete("LastName");
    customer.Indexes().Delete("PrimaryKey");
    database.TableDefs("PlaylistTrack").Indexes().Delete("PrimaryKey");
    reopen();

    EXPECT_THAT(fieldsOf(database.TableDefs("Track")),
                ElementsAre("TrackId:4/4", "Name:10/200", "AlbumId:4/4", "MediaTypeId:4/4", "Bytes:4/4",
                            "UnitPrice:5/8", "Rating:2/1"));
    EXPECT_THAT(indexesOf(database.TableDefs("Track")),
                ElementsAre("PrimaryKey", "IFK_TrackAlbumId", "IFK_TrackMediaTypeId", "ByName"));
    EXPECT_THAT(indexesOf(database.TableDefs("Customer")), ElementsAre("IFK_CustomerSupportRepId"));
    EXPECT_EQ(file.rows("SELECT TrackId, Name, AlbumId FROM Track"), tracks);
    EXPECT_EQ(file.rows("SELECT CustomerId, FirstName, Email FROM Customer"), customers);
    EXPECT_EQ(file.rows(others), othersBefore);
    EXPECT_EQ(file.value("SELECT count(*) FROM pragma_foreign_key_list('Track')"), "2");
    {
        Recordset rows = database.OpenRecordset("Track");
        rows.Index("ByName");
        rows.Seek("=", {"fOR tHOSE aBOUT TO ROCK (wE sALUTE yOU)"});
        ASSERT_FALSE(rows.NoMatch());
        EXPECT_EQ(valueText(rows.Fields("TrackId").Value()), "1");
    }
    // SQLite's own tools can't check an index in our order of texts.
    database.TableDefs("Track").Indexes().Delete("ByName");
    EXPECT_THAT(file.rows("PRAGMA integrity_check"), ElementsAre("ok"));
}

TEST_F(Chinook, KeepsWhatIsWrittenIntoIt) {
    {
        Recordset invoices = database.OpenRecordset("Invoice");
        invoices.Index("PrimaryKey");
        invoices.Seek("=", {5});
        ASSERT_FALSE(invoices.NoMatch());
        set(invoices, "Total", runtime::Currency{139900});
        set(invoices, "InvoiceDate", runtime::dateFromIso("2010-02-28 13:14:15"));
        add(invoices, {{"CustomerId", 1},
                       {"InvoiceDate", runtime::dateFromIso("2014-01-01")},
                       {"Total", runtime::Currency{5000}}});
    }
    EXPECT_EQ(file.value("SELECT Total, InvoiceDate FROM Invoice WHERE InvoiceId = 5"),
              "13.99|2010-02-28 13:14:15");
    EXPECT_EQ(file.value("SELECT max(InvoiceId), Total FROM Invoice"), "413|0.5");
    EXPECT_THAT(faults(), IsEmpty());
}

} // namespace tol::test
