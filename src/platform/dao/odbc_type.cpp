#include "platform/dao/odbc_type.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/text.h"

namespace vellumark::dao {

namespace {

enum class Sized { No, Text, Long, Digits };

struct OdbcType {
    int sqlType;
    int daoType;
    int adoType;
    Sized sized;
    int daoSize = 0;
    int precision = 0;    // 0 for none
    int unsignedAdo = 0;  // of unsigned columns, where that makes a difference
};

// Microsoft's own types of SQL Server.
enum SqlServerType { kVariant = -150, kXml = -152, kTime2 = -154, kTimestampOffset = -155 };

constexpr std::array kOdbcTypes = {
    OdbcType{SQL_BIT, dbBoolean, 11, Sized::No, 1},
    OdbcType{SQL_TINYINT, dbByte, 16, Sized::No, 1, 3, 17},
    OdbcType{SQL_SMALLINT, dbInteger, 2, Sized::No, 2, 5, 18},
    OdbcType{SQL_INTEGER, dbLong, 3, Sized::No, 4, 10, 19},
    OdbcType{SQL_BIGINT, dbBigInt, 20, Sized::No, 8, 19, 21},
    OdbcType{SQL_REAL, dbSingle, 4, Sized::No, 4, 7},
    OdbcType{SQL_FLOAT, dbDouble, 5, Sized::No, 8, 15},
    OdbcType{SQL_DOUBLE, dbDouble, 5, Sized::No, 8, 15},
    OdbcType{SQL_NUMERIC, dbNumeric, 131, Sized::Digits, 16},
    OdbcType{SQL_DECIMAL, dbDecimal, 131, Sized::Digits, 16},
    OdbcType{SQL_CHAR, dbChar, 129, Sized::Text},
    OdbcType{SQL_VARCHAR, dbText, 200, Sized::Text},
    OdbcType{SQL_LONGVARCHAR, dbMemo, 201, Sized::Long},
    OdbcType{SQL_WCHAR, dbChar, 130, Sized::Text},
    OdbcType{SQL_WVARCHAR, dbText, 202, Sized::Text},
    OdbcType{SQL_WLONGVARCHAR, dbMemo, 203, Sized::Long},
    OdbcType{kXml, dbMemo, 203, Sized::Long},
    OdbcType{SQL_BINARY, dbBinary, 128, Sized::Text},
    OdbcType{SQL_VARBINARY, dbVarBinary, 204, Sized::Text},
    OdbcType{SQL_LONGVARBINARY, dbLongBinary, 205, Sized::Long},
    OdbcType{SQL_TYPE_DATE, dbDate, 133, Sized::No, 8},
    OdbcType{SQL_TYPE_TIME, dbTime, 134, Sized::No, 8},
    OdbcType{SQL_TYPE_TIMESTAMP, dbTimeStamp, 135, Sized::No, 8},
    // As drivers of the second version number them.
    OdbcType{SQL_DATE, dbDate, 133, Sized::No, 8},
    OdbcType{SQL_TIME, dbTime, 134, Sized::No, 8},
    OdbcType{SQL_TIMESTAMP, dbTimeStamp, 135, Sized::No, 8},
    OdbcType{kTime2, dbTime, 134, Sized::No, 8},
    OdbcType{kTimestampOffset, dbTimeStamp, 135, Sized::No, 8},
    OdbcType{SQL_GUID, dbGUID, 72, Sized::No, 16},
    OdbcType{kVariant, dbText, 12, Sized::Text},
};

// What some drivers pass for texts or bytes although it has a type of its own.
constexpr std::pair<std::string_view, int> kNamedTypes[] = {{"timetz", SQL_TYPE_TIME}, {"uuid", SQL_GUID}};

constexpr OdbcType kUnknown{0, dbText, 200, Sized::Text};

const OdbcType& Find(const odbc::CatalogColumn& column) {
    const auto named = std::ranges::find_if(kNamedTypes, [&](const auto& type) {
        return platform::EqualsIgnoringCase(type.first, column.typeName);
    });
    const int sqlType = named == std::end(kNamedTypes) ? column.sqlType : named->second;
    const auto found = std::ranges::find(kOdbcTypes, sqlType, &OdbcType::sqlType);
    return found == kOdbcTypes.end() ? kUnknown : *found;
}

std::optional<int> AboveZero(const std::optional<int>& size) {
    return size.value_or(0) > 0 ? size : std::nullopt;
}

void ApplySize(ColumnType& type, Sized sized, const odbc::CatalogColumn& column) {
    if (sized == Sized::Digits) {
        type.precision = column.size;
        type.scale = column.scale;
        return;
    }
    type.maximumLength = AboveZero(column.size);
    if (sized == Sized::Text)
        type.daoSize = type.maximumLength.value_or(0);
}

}  // namespace

ColumnType ReadOdbcType(const odbc::CatalogColumn& column) {
    if (column.sqlType == 0)
        return ReadDeclaredType(column.typeName);
    const OdbcType& known = Find(column);
    const bool isUnsigned =
        known.unsignedAdo != 0 && platform::ContainsIgnoringCase(column.typeName, "unsigned");
    ColumnType type;
    type.daoType = known.daoType;
    type.adoType = isUnsigned ? known.unsignedAdo : known.adoType;
    type.daoSize = known.daoSize;
    if (known.precision > 0)
        type.precision = known.precision;
    if (known.sized != Sized::No)
        ApplySize(type, known.sized, column);
    return type;
}

std::vector<Field> ReadOdbcFields(std::vector<odbc::CatalogColumn> columns) {
    std::vector<Field> fields;
    for (odbc::CatalogColumn& column : columns) {
        Field field;
        field.type = ReadOdbcType(column);
        field.name = std::move(column.name);
        field.required = !column.nullable;
        field.ordinalPosition = static_cast<int>(fields.size());
        fields.push_back(std::move(field));
    }
    return fields;
}

}  // namespace vellumark::dao
