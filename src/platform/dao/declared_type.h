#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vellumark::dao {

enum FieldType : int {
    dbBoolean = 1,
    dbByte = 2,
    dbInteger = 3,
    dbLong = 4,
    dbCurrency = 5,
    dbSingle = 6,
    dbDouble = 7,
    dbDate = 8,
    dbBinary = 9,
    dbText = 10,
    dbLongBinary = 11,
    dbMemo = 12,
    dbGUID = 15,
    dbBigInt = 16,
    dbVarBinary = 17,
    dbChar = 18,
    dbNumeric = 19,
    dbDecimal = 20,
    dbFloat = 21,
    dbTime = 22,
    dbTimeStamp = 23,
};

// A column's type as each of the two protocols sees it. An empty number is Null there.
struct ColumnType {
    int daoType = dbText;
    int daoSize = 0;  // characters of text, else bytes; 0 for unlimited
    int adoType = 200;
    std::optional<int> maximumLength;
    std::optional<int> precision;
    std::optional<int> scale;
};

// Reads a declared type such as "NVARCHAR(40)" as Access, SQLite and common SQL mean it; a word that nobody
// knows goes by SQLite's affinity rules.
ColumnType ReadDeclaredType(std::string_view declared);

// The declaration of a field of our own making.
std::string DeclarationOf(int daoType, int size);

}  // namespace vellumark::dao
