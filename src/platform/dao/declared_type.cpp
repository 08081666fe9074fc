#include "platform/dao/declared_type.h"

#include <algorithm>
#include <array>

#include "platform/text.h"

namespace vellumark::dao {

namespace {

constexpr int kDefaultTextSize = 255;
constexpr int kUnlimitedText = 1073741823;

// How the numbers in parentheses act.
enum class Sized { No, Text, Bytes, Digits };

struct KnownType {
    std::string_view word;
    int daoType;
    int adoType;
    Sized sized;
    int daoSize;
    int precision;  // 0 for none
};

constexpr std::array kKnownTypes = {
    KnownType{"BOOLEAN", dbBoolean, 11, Sized::No, 1, 0},
    KnownType{"BOOL", dbBoolean, 11, Sized::No, 1, 0},
    KnownType{"BIT", dbBoolean, 11, Sized::No, 1, 0},
    KnownType{"YESNO", dbBoolean, 11, Sized::No, 1, 0},
    KnownType{"BYTE", dbByte, 17, Sized::No, 1, 3},
    KnownType{"TINYINT", dbByte, 17, Sized::No, 1, 3},
    KnownType{"SMALLINT", dbInteger, 2, Sized::No, 2, 5},
    KnownType{"SHORT", dbInteger, 2, Sized::No, 2, 5},
    KnownType{"INT2", dbInteger, 2, Sized::No, 2, 5},
    KnownType{"INTEGER", dbLong, 3, Sized::No, 4, 10},
    KnownType{"INT", dbLong, 3, Sized::No, 4, 10},
    KnownType{"INT4", dbLong, 3, Sized::No, 4, 10},
    KnownType{"MEDIUMINT", dbLong, 3, Sized::No, 4, 10},
    KnownType{"LONG", dbLong, 3, Sized::No, 4, 10},
    KnownType{"COUNTER", dbLong, 3, Sized::No, 4, 10},
    KnownType{"BIGINT", dbBigInt, 20, Sized::No, 8, 19},
    KnownType{"INT8", dbBigInt, 20, Sized::No, 8, 19},
    KnownType{"BIGINT UNSIGNED", dbBigInt, 20, Sized::No, 8, 19},
    KnownType{"CURRENCY", dbCurrency, 6, Sized::No, 8, 19},
    KnownType{"MONEY", dbCurrency, 6, Sized::No, 8, 19},
    KnownType{"SINGLE", dbSingle, 4, Sized::No, 4, 7},
    KnownType{"FLOAT4", dbSingle, 4, Sized::No, 4, 7},
    KnownType{"REAL", dbDouble, 5, Sized::No, 8, 15},
    KnownType{"DOUBLE", dbDouble, 5, Sized::No, 8, 15},
    KnownType{"DOUBLE PRECISION", dbDouble, 5, Sized::No, 8, 15},
    KnownType{"FLOAT", dbDouble, 5, Sized::No, 8, 15},
    KnownType{"FLOAT8", dbDouble, 5, Sized::No, 8, 15},
    KnownType{"NUMERIC", dbNumeric, 131, Sized::Digits, 0, 0},
    KnownType{"DECIMAL", dbNumeric, 131, Sized::Digits, 0, 0},
    KnownType{"DATE", dbDate, 133, Sized::No, 8, 0},
    KnownType{"DATETIME", dbDate, 135, Sized::No, 8, 0},
    KnownType{"TIMESTAMP", dbDate, 135, Sized::No, 8, 0},
    KnownType{"TIMESTAMP WITH TIME ZONE", dbDate, 135, Sized::No, 8, 0},
    KnownType{"TIMESTAMP WITHOUT TIME ZONE", dbDate, 135, Sized::No, 8, 0},
    KnownType{"TIMESTAMPTZ", dbDate, 135, Sized::No, 8, 0},
    KnownType{"TIME", dbTime, 134, Sized::No, 8, 0},
    KnownType{"CHAR", dbChar, 129, Sized::Text, kDefaultTextSize, 0},
    KnownType{"CHARACTER", dbChar, 129, Sized::Text, kDefaultTextSize, 0},
    KnownType{"NCHAR", dbChar, 130, Sized::Text, kDefaultTextSize, 0},
    KnownType{"VARCHAR", dbText, 200, Sized::Text, kDefaultTextSize, 0},
    KnownType{"CHARACTER VARYING", dbText, 200, Sized::Text, kDefaultTextSize, 0},
    KnownType{"VARCHAR2", dbText, 200, Sized::Text, kDefaultTextSize, 0},
    KnownType{"NVARCHAR", dbText, 202, Sized::Text, kDefaultTextSize, 0},
    KnownType{"NVARCHAR2", dbText, 202, Sized::Text, kDefaultTextSize, 0},
    KnownType{"TEXT", dbMemo, 201, Sized::No, 0, 0},
    KnownType{"MEMO", dbMemo, 201, Sized::No, 0, 0},
    KnownType{"LONGTEXT", dbMemo, 201, Sized::No, 0, 0},
    KnownType{"CLOB", dbMemo, 201, Sized::No, 0, 0},
    KnownType{"JSON", dbMemo, 201, Sized::No, 0, 0},
    KnownType{"XML", dbMemo, 201, Sized::No, 0, 0},
    KnownType{"BLOB", dbLongBinary, 205, Sized::No, 0, 0},
    KnownType{"LONGBINARY", dbLongBinary, 205, Sized::No, 0, 0},
    KnownType{"OLEOBJECT", dbLongBinary, 205, Sized::No, 0, 0},
    KnownType{"BYTEA", dbLongBinary, 205, Sized::No, 0, 0},
    KnownType{"IMAGE", dbLongBinary, 205, Sized::No, 0, 0},
    KnownType{"BINARY", dbBinary, 128, Sized::Bytes, kDefaultTextSize, 0},
    KnownType{"VARBINARY", dbVarBinary, 204, Sized::Bytes, kDefaultTextSize, 0},
    KnownType{"GUID", dbGUID, 72, Sized::No, 16, 0},
    KnownType{"UUID", dbGUID, 72, Sized::No, 16, 0},
};

struct Declared {
    std::string word;  // upper case, single blanks
    std::optional<int> first;
    std::optional<int> second;
};

std::optional<int> NumberIn(std::string_view text) {
    return platform::ParseLong(platform::Trim(text));
}

Declared Parse(std::string_view declared) {
    Declared result;
    const std::size_t open = declared.find('(');
    for (const std::string_view word : platform::Split(declared.substr(0, open), ' '))
        if (!word.empty())
            result.word += (result.word.empty() ? "" : " ") + platform::ToUpper(word);
    if (open == std::string_view::npos)
        return result;
    const std::string_view inner = declared.substr(open + 1, declared.find(')', open) - open - 1);
    const std::size_t comma = inner.find(',');
    result.first = NumberIn(inner.substr(0, comma));
    if (comma != std::string_view::npos)
        result.second = NumberIn(inner.substr(comma + 1));
    return result;
}

const KnownType* Find(std::string_view word) {
    const auto found = std::ranges::find(kKnownTypes, word, &KnownType::word);
    return found == kKnownTypes.end() ? nullptr : &*found;
}

// SQLite's own rules for words it doesn't know.
std::string_view AffinityWord(std::string_view word, bool sized) {
    const auto has = [&](std::string_view part) { return word.find(part) != word.npos; };
    if (has("INT"))
        return "INTEGER";
    if (has("CHAR") || has("CLOB") || has("TEXT"))
        return sized ? "VARCHAR" : "TEXT";
    if (has("BLOB") || word.empty())
        return "BLOB";
    if (has("REAL") || has("FLOA") || has("DOUB"))
        return "DOUBLE";
    return "NUMERIC";
}

void ApplySize(ColumnType& type, Sized sized, const Declared& declared) {
    if (sized == Sized::Digits) {
        type.precision = declared.first;
        type.scale = declared.first ? std::optional<int>(declared.second.value_or(0)) : std::nullopt;
        type.daoSize = 16;
        return;
    }
    if (declared.first && *declared.first > 0)
        type.daoSize = *declared.first;
    type.maximumLength = type.daoSize;
}

}  // namespace

ColumnType ReadDeclaredType(std::string_view text) {
    Declared declared = Parse(text);
    if (declared.word == "TEXT" && declared.first)
        declared.word = "VARCHAR";
    const KnownType* known = Find(declared.word);
    if (known == nullptr)
        known = Find(AffinityWord(declared.word, declared.first.has_value()));
    ColumnType type;
    type.daoType = known->daoType;
    type.adoType = known->adoType;
    type.daoSize = known->daoSize;
    if (known->precision > 0)
        type.precision = known->precision;
    if (known->sized != Sized::No)
        ApplySize(type, known->sized, declared);
    if (known->daoType == dbMemo)
        type.maximumLength = kUnlimitedText;
    return type;
}

std::string DeclarationOf(int daoType, int size) {
    constexpr std::array<std::string_view, 24> words = {
        "",         "YESNO",     "BYTE", "SHORT",      "LONG",    "CURRENCY", "SINGLE", "DOUBLE",
        "DATETIME", "BINARY",    "TEXT", "LONGBINARY", "MEMO",    "",         "",       "GUID",
        "BIGINT",   "VARBINARY", "CHAR", "NUMERIC",    "DECIMAL", "FLOAT",    "TIME",   "TIMESTAMP"};
    std::string text(words.at(static_cast<std::size_t>(daoType)));
    const bool sized =
        daoType == dbText || daoType == dbChar || daoType == dbBinary || daoType == dbVarBinary;
    if (sized && size > 0)
        text += "(" + std::to_string(size) + ")";
    const bool isText = daoType == dbText || daoType == dbChar || daoType == dbMemo;
    return isText ? text + " collate nocase" : text;
}

}  // namespace vellumark::dao
