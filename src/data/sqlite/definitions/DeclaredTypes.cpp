// SPDX-License-Identifier: MIT
#include "data/sqlite/definitions/DeclaredTypes.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>
#include <vector>

namespace tol::data::sqlite {

namespace {

/// The declared types of our own columns. A second word gives the affinity where the first alone would
/// leave the column with none that suits: whole amounts must not turn into REAL, identifiers not into
/// numbers, and Single values not into integers.
struct OwnType {
    FieldType type;
    const char* words;
    const char* strictWord;
};

constexpr std::array ownTypes = {
    OwnType{dbBoolean, "BOOLEAN", "INTEGER"},
    OwnType{dbByte, "TINYINT", "INTEGER"},
    OwnType{dbInteger, "SMALLINT", "INTEGER"},
    OwnType{dbLong, "INTEGER", "INTEGER"},
    OwnType{dbCurrency, "CURRENCY INTEGER", "INTEGER"},
    OwnType{dbSingle, "SINGLE FLOAT", "REAL"},
    OwnType{dbDouble, "DOUBLE", "REAL"},
    OwnType{dbDate, "DATETIME", "TEXT"},
    OwnType{dbText, "TEXT", "TEXT"},
    OwnType{dbLongBinary, "BLOB", "BLOB"},
    OwnType{dbMemo, "TEXT", "TEXT"},
    OwnType{dbGUID, "GUID TEXT", "TEXT"},
};

/// What a known word asks for; Text and Decimal depend on the numbers in the brackets behind it.
enum class Meaning { Plain, Text, Decimal, Money, ScaledMoney, Bits };

struct KnownType {
    std::string_view names; ///< with a blank before and behind each
    FieldType type;
    Meaning meaning = Meaning::Plain;
};

/// Names as they are written in SQLite files of many makers, several words joined to one.
constexpr KnownType knownTypes[] = {
    {" INT INTEGER MEDIUMINT INT4 INT32 LONG LONGINT COUNTER AUTOINCREMENT SERIAL ", dbLong},
    {" SMALLINT SHORT INT2 INT16 YEAR ", dbInteger},
    {" TINYINT BYTE ", dbByte},
    {" BIGINT INT8 INT64 BIGSERIAL DOUBLE FLOAT REAL ", dbDouble},
    {" BOOLEAN BOOL LOGICAL YESNO ", dbBoolean},
    {" BIT ", dbBoolean, Meaning::Bits},
    {" CURRENCYINTEGER ", dbCurrency, Meaning::ScaledMoney},
    {" CURRENCY MONEY SMALLMONEY ", dbCurrency, Meaning::Money},
    {" DECIMAL DEC NUMERIC NUMBER NUM ", dbDouble, Meaning::Decimal},
    {" SINGLE ", dbSingle},
    {" DATE DATETIME DATETIME2 SMALLDATETIME TIMESTAMP TIMESTAMPTZ ", dbDate},
    {" CHAR CHARACTER NCHAR VARCHAR VARCHAR2 NVARCHAR NVARCHAR2 TEXT STRING ", dbText, Meaning::Text},
    {" MEMO LONGVARCHAR LONGTEXT ", dbMemo},
    {" BLOB BINARY VARBINARY LONGBINARY BYTEA IMAGE RAW LONGRAW ", dbLongBinary},
    {" GUID UUID UNIQUEIDENTIFIER ", dbGUID},
};

/// A declared type taken apart: upper-case words outside of brackets, numbers of the first brackets.
struct Parts {
    std::vector<std::string> words;
    std::vector<int> numbers; ///< a negative one stands as -1
};

/// Words that say nothing about the field type.
bool isNoise(std::string_view word) {
    return word == "UNSIGNED" || word == "SIGNED" || word == "NATIONAL" || word == "NATIVE" ||
           word == "VARYING" || word == "PRECISION";
}

bool isWordCharacter(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

/// Reads the run of word characters at the position, upper case, and moves behind it.
std::string takeWord(std::string_view text, std::size_t& at) {
    std::string word;
    for (; at < text.size() && isWordCharacter(text[at]); ++at)
        word += static_cast<char>(std::toupper(static_cast<unsigned char>(text[at])));
    return word;
}

std::optional<int> wholeNumber(std::string_view word, bool negative) {
    constexpr int most = 1'000'000'000; // SQLite's longest text; more digits mean no more
    int number = 0;
    for (const char c : word) {
        if (c < '0' || c > '9')
            return std::nullopt;
        number = number > most / 10 ? most : number * 10 + (c - '0');
    }
    return negative ? -1 : number;
}

Parts takeApart(std::string_view declared) {
    Parts parts;
    int depth = 0;
    bool numbersRead = false;
    for (std::size_t at = 0; at < declared.size();) {
        const char c = declared[at];
        if (!isWordCharacter(c)) {
            depth += c == '(' ? 1 : c == ')' && depth > 0 ? -1 : 0;
            numbersRead = numbersRead || c == ')';
            ++at;
            continue;
        }
        const bool negative = at > 0 && declared[at - 1] == '-';
        std::string word = takeWord(declared, at);
        if (depth == 0 && !isNoise(word))
            parts.words.push_back(std::move(word));
        else if (depth > 0 && !numbersRead)
            if (const auto number = wholeNumber(word, negative))
                parts.numbers.push_back(*number);
    }
    return parts;
}

const KnownType* findKnown(std::string_view name) {
    const std::string sought = " " + std::string(name) + " ";
    const auto* found = std::ranges::find_if(knownTypes, [&](const KnownType& known) {
        return known.names.find(sought) != std::string_view::npos;
    });
    return found == std::end(knownTypes) ? nullptr : found;
}

/// The words joined mean most ("BIG INT"); else the first word that is known ("LONG INTEGER",
/// "TIMESTAMP WITH TIME ZONE").
const KnownType* findKnown(const std::vector<std::string>& words) {
    std::string joined;
    for (const std::string& word : words)
        joined += word;
    if (const KnownType* known = findKnown(joined))
        return known;
    for (const std::string& word : words)
        if (const KnownType* known = findKnown(word))
            return known;
    return nullptr;
}

/// SQLite's own rule for types that nobody knows: it looks for parts of words, in this order.
const KnownType& byAffinity(const std::vector<std::string>& words) {
    static constexpr std::array parts = {
        KnownType{"INT", dbLong},
        KnownType{"CHAR", dbText, Meaning::Text},
        KnownType{"CLOB", dbText, Meaning::Text},
        KnownType{"TEXT", dbText, Meaning::Text},
        KnownType{"BLOB", dbLongBinary},
        KnownType{"REAL", dbDouble},
        KnownType{"FLOA", dbDouble},
        KnownType{"DOUB", dbDouble},
    };
    static constexpr KnownType unknown{"", dbMemo};
    for (const KnownType& part : parts)
        for (const std::string& word : words)
            if (word.find(part.names) != std::string::npos)
                return part;
    return unknown;
}

ColumnType plain(FieldType type) {
    return {type, reportedSize(type, 0), type == dbDate ? Storage::IsoDate : Storage::Native};
}

ColumnType money(Storage storage) {
    return {dbCurrency, reportedSize(dbCurrency, 0), storage};
}

/// Up to four decimals fit a Currency; what has none may be larger than one and is a Double.
ColumnType decimal(const std::vector<int>& numbers) {
    const bool fits = numbers.size() >= 2 && numbers[0] <= 19 && numbers[1] >= 1 && numbers[1] <= 4;
    return fits ? money(Storage::DecimalCurrency) : plain(dbDouble);
}

ColumnType text(const std::vector<int>& numbers) {
    if (numbers.empty() || numbers[0] < 1 || numbers[0] > maxTextSize)
        return plain(dbMemo);
    return {dbText, numbers[0], Storage::Native};
}

} // namespace

Storage ownStorage(FieldType type) {
    if (type == dbCurrency)
        return Storage::ScaledCurrency;
    return type == dbDate ? Storage::IsoDate : Storage::Native;
}

std::string declaredType(FieldType type, int size, bool strict) {
    const auto* own = std::ranges::find(ownTypes, type, &OwnType::type);
    if (own == ownTypes.end())
        return "";
    if (strict)
        return own->strictWord;
    if (type != dbText)
        return own->words;
    return own->words + ("(" + std::to_string(std::clamp(size, 1, maxTextSize))) + ")";
}

ColumnType readDeclaredType(std::string_view declared) {
    const Parts parts = takeApart(declared);
    const KnownType* known = findKnown(parts.words);
    if (known == nullptr)
        known = &byAffinity(parts.words);
    switch (known->meaning) {
    case Meaning::Text:
        return text(parts.numbers);
    case Meaning::Decimal:
        return decimal(parts.numbers);
    case Meaning::Money:
        return money(Storage::DecimalCurrency);
    case Meaning::ScaledMoney:
        return money(Storage::ScaledCurrency);
    case Meaning::Bits:
        return plain(parts.numbers.empty() || parts.numbers[0] == 1 ? dbBoolean : dbDouble);
    case Meaning::Plain:
        break;
    }
    return plain(known->type);
}

} // namespace tol::data::sqlite
