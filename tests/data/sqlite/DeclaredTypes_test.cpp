// SPDX-License-Identifier: MIT
#include "data/sqlite/definitions/DeclaredTypes.h"

#include <gtest/gtest.h>

#include <sqlite3.h>

#include <memory>
#include <ostream>

namespace tol::data::sqlite {

void PrintTo(const ColumnType& column, std::ostream* out) {
    *out << "type " << column.type << " size " << column.size << " storage "
         << static_cast<int>(column.storage);
}

} // namespace tol::data::sqlite

namespace tol::test {

using namespace data;
using namespace data::sqlite;

namespace {

struct Reading {
    const char* declared;
    FieldType type;
    int size;
    Storage storage = Storage::Native;
};

void PrintTo(const Reading& reading, std::ostream* out) {
    *out << '"' << reading.declared << '"';
}

class ReadDeclaredType : public testing::TestWithParam<Reading> {};

} // namespace

TEST_P(ReadDeclaredType, GivesTheNearestFieldType) {
    const Reading& wanted = GetParam();
    EXPECT_EQ(readDeclaredType(wanted.declared), (ColumnType{wanted.type, wanted.size, wanted.storage}));
}

INSTANTIATE_TEST_SUITE_P(
    WholeNumbers, ReadDeclaredType,
    testing::Values(Reading{"INT", dbLong, 4}, Reading{"INTEGER", dbLong, 4}, Reading{"integer", dbLong, 4},
                    Reading{"MEDIUMINT", dbLong, 4}, Reading{"INT UNSIGNED", dbLong, 4},
                    Reading{"LONG INTEGER", dbLong, 4}, Reading{"INT(11)", dbLong, 4},
                    Reading{"SMALLINT", dbInteger, 2}, Reading{"smallint(6)", dbInteger, 2},
                    Reading{"INT2", dbInteger, 2}, Reading{"TINYINT", dbByte, 1}, Reading{"BYTE", dbByte, 1},
                    Reading{"UNSIGNED TINYINT(3)", dbByte, 1}, Reading{"BIGINT", dbDouble, 8},
                    Reading{"UNSIGNED BIG INT", dbDouble, 8}, Reading{"INT8", dbDouble, 8},
                    Reading{"BOOLEAN", dbBoolean, 1}, Reading{"Bool", dbBoolean, 1},
                    Reading{"BIT", dbBoolean, 1}, Reading{"BIT(1)", dbBoolean, 1},
                    Reading{"BIT(8)", dbDouble, 8}));

INSTANTIATE_TEST_SUITE_P(
    Amounts, ReadDeclaredType,
    testing::Values(Reading{"NUMERIC", dbDouble, 8}, Reading{"NUMERIC(10)", dbDouble, 8},
                    Reading{"DECIMAL(10,0)", dbDouble, 8},
                    Reading{"NUMERIC(10,2)", dbCurrency, 8, Storage::DecimalCurrency},
                    Reading{"decimal ( 19 , 4 )", dbCurrency, 8, Storage::DecimalCurrency},
                    Reading{"DECIMAL(20,2)", dbDouble, 8}, Reading{"DECIMAL(10,5)", dbDouble, 8},
                    Reading{"DECIMAL(10,-2)", dbDouble, 8},
                    Reading{"MONEY", dbCurrency, 8, Storage::DecimalCurrency},
                    Reading{"Currency", dbCurrency, 8, Storage::DecimalCurrency},
                    Reading{"FLOAT", dbDouble, 8}, Reading{"REAL", dbDouble, 8},
                    Reading{"DOUBLE PRECISION", dbDouble, 8}, Reading{"NUM", dbDouble, 8},
                    Reading{"SINGLE", dbSingle, 4}));

INSTANTIATE_TEST_SUITE_P(
    Texts, ReadDeclaredType,
    testing::Values(Reading{"VARCHAR(20)", dbText, 20}, Reading{"NVARCHAR(160)", dbText, 160},
                    Reading{"nchar (55)", dbText, 55}, Reading{"NATIVE CHARACTER(70)", dbText, 70},
                    Reading{"CHARACTER VARYING(255)", dbText, 255}, Reading{"TEXT(1)", dbText, 1},
                    Reading{"VARCHAR(50 CHAR)", dbText, 50}, Reading{"VARCHAR(256)", dbMemo, 0},
                    Reading{"VARCHAR(99999999999999999999)", dbMemo, 0}, Reading{"VARCHAR(0)", dbMemo, 0},
                    Reading{"VARCHAR(-1)", dbMemo, 0}, Reading{"VARCHAR(MAX)", dbMemo, 0},
                    Reading{"VARCHAR", dbMemo, 0}, Reading{"CHAR", dbMemo, 0}, Reading{"TEXT", dbMemo, 0},
                    Reading{"CLOB", dbMemo, 0}, Reading{"LONG VARCHAR", dbMemo, 0},
                    Reading{"STRING", dbMemo, 0}, Reading{"STRING(40)", dbText, 40},
                    Reading{"CITEXT", dbMemo, 0}));

INSTANTIATE_TEST_SUITE_P(Others, ReadDeclaredType,
                         testing::Values(Reading{"DATE", dbDate, 8, Storage::IsoDate},
                                         Reading{"DATETIME", dbDate, 8, Storage::IsoDate},
                                         Reading{"TIMESTAMP WITH TIME ZONE", dbDate, 8, Storage::IsoDate},
                                         Reading{"datetime(6)", dbDate, 8, Storage::IsoDate},
                                         Reading{"BLOB", dbLongBinary, 0},
                                         Reading{"VARBINARY(20)", dbLongBinary, 0},
                                         Reading{"BINARY LARGE OBJECT", dbLongBinary, 0},
                                         Reading{"UUID", dbGUID, 16}, Reading{"UNIQUEIDENTIFIER", dbGUID, 16},
                                         Reading{"guid", dbGUID, 16}));

INSTANTIATE_TEST_SUITE_P(UnknownOnes, ReadDeclaredType,
                         testing::Values(Reading{"", dbMemo, 0}, Reading{"   ", dbMemo, 0},
                                         Reading{"JSON", dbMemo, 0}, Reading{"ENUM('a(','b')", dbMemo, 0},
                                         Reading{"POINTER", dbLong, 4}, Reading{"XDOUBLEX", dbDouble, 8},
                                         Reading{"MYBLOB", dbLongBinary, 0},
                                         Reading{"\"odd type\"(7)", dbMemo, 0},
                                         Reading{"[VARCHAR](12)", dbText, 12},
                                         Reading{"VARCHAR)(3", dbMemo, 0}, Reading{"VARCHAR((((9", dbText, 9},
                                         Reading{"\xC3\x84\xFF(", dbMemo, 0}));

namespace {

class OwnDeclaredType : public testing::TestWithParam<FieldType> {};

/// An in-memory table of one column with that type.
class OneColumn {
  public:
    explicit OneColumn(const std::string& type) {
        sqlite3* handle = nullptr;
        sqlite3_open(":memory:", &handle);
        m_database.reset(handle);
        ask("CREATE TABLE t(c " + type + ")");
    }
    /// The first column of the first row, as text.
    std::string ask(const std::string& sql) {
        std::string answer;
        const auto keep = [](void* target, int, char** values, char**) {
            *static_cast<std::string*>(target) = values[0] == nullptr ? "" : values[0];
            return 0;
        };
        EXPECT_EQ(sqlite3_exec(m_database.get(), sql.c_str(), keep, &answer, nullptr), SQLITE_OK) << sql;
        return answer;
    }
    std::string store(const std::string& literal) {
        ask("DELETE FROM t");
        ask("INSERT INTO t VALUES(" + literal + ")");
        return ask("SELECT typeof(c) || ' ' || quote(c) FROM t");
    }

  private:
    struct Closer {
        void operator()(sqlite3* database) const { sqlite3_close(database); }
    };
    std::unique_ptr<sqlite3, Closer> m_database;
};

} // namespace

TEST_P(OwnDeclaredType, ReadsBackAsItself) {
    const FieldType type = GetParam();
    const ColumnType column = readDeclaredType(declaredType(type, 37));
    EXPECT_EQ(column.type, type);
    EXPECT_EQ(column.size, reportedSize(type, 37));
    EXPECT_EQ(column.storage, ownStorage(type));
}

TEST_P(OwnDeclaredType, IsOneOfTheFiveOfStrictTables) {
    const std::string type = declaredType(GetParam(), 37, true);
    EXPECT_EQ(OneColumn("INT, d " + type + ") STRICT --")
                  .ask("SELECT type FROM pragma_table_info('t') WHERE cid=1"),
              type);
}

INSTANTIATE_TEST_SUITE_P(All, OwnDeclaredType,
                         testing::Values(dbBoolean, dbByte, dbInteger, dbLong, dbCurrency, dbSingle, dbDouble,
                                         dbDate, dbText, dbLongBinary, dbMemo, dbGUID));

TEST(DeclaredTypes, TextTellsItsSizeWithinBounds) {
    EXPECT_EQ(declaredType(dbText, 1), "TEXT(1)");
    EXPECT_EQ(declaredType(dbText, 255), "TEXT(255)");
    EXPECT_EQ(declaredType(dbText, 0), "TEXT(1)");
    EXPECT_EQ(declaredType(dbText, 300), "TEXT(255)");
}

TEST(DeclaredTypes, OwnColumnsKeepValuesAsTheyAreWritten) {
    EXPECT_EQ(OneColumn(declaredType(dbBoolean, 1)).store("1"), "integer 1");
    EXPECT_EQ(OneColumn(declaredType(dbCurrency, 8)).store("9223372036854775807"),
              "integer 9223372036854775807");
    EXPECT_EQ(OneColumn(declaredType(dbSingle, 4)).store("1.0"), "real 1.0");
    EXPECT_EQ(OneColumn(declaredType(dbDouble, 8)).store("1e3"), "real 1000.0");
    EXPECT_EQ(OneColumn(declaredType(dbDate, 8)).store("'2003-01-31 00:00:00'"),
              "text '2003-01-31 00:00:00'");
    EXPECT_EQ(OneColumn(declaredType(dbText, 10)).store("'0012'"), "text '0012'");
    EXPECT_EQ(OneColumn(declaredType(dbMemo, 0)).store("'0012'"), "text '0012'");
    EXPECT_EQ(OneColumn(declaredType(dbGUID, 16)).store("'00000000000000000000000000000012'"),
              "text '00000000000000000000000000000012'");
    EXPECT_EQ(OneColumn(declaredType(dbLongBinary, 0)).store("x'00ff'"), "blob X'00FF'");
}

} // namespace tol::test
