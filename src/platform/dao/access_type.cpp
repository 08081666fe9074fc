#include "platform/dao/access_type.h"

#include <string>

namespace vellumark::dao {

namespace {

constexpr int kComplex = 101;
constexpr int kExtendedDate = 26;

std::string Sized(const std::string& word, int size) {
    return word + "(" + std::to_string(size) + ")";
}

std::string TextWord(const access::Column& column, bool isJet3) {
    const int characters = isJet3 ? column.length : column.length / 2;
    return Sized(isJet3 ? "VARCHAR" : "NVARCHAR", characters);
}

// The word that reads as the same type when others declare it.
std::string DeclaredWord(const access::Column& column, bool isJet3) {
    switch (column.kind) {
        case access::Kind::Boolean:
            return "YESNO";
        case access::Kind::Byte:
            return "BYTE";
        case access::Kind::Integer:
            return "SHORT";
        case access::Kind::Long:
            return "LONG";
        case access::Kind::Currency:
            return "CURRENCY";
        case access::Kind::Single:
            return "SINGLE";
        case access::Kind::Double:
            return "DOUBLE";
        case access::Kind::Date:
            return "DATETIME";
        case access::Kind::Binary:
            return Sized("BINARY", column.length);
        case access::Kind::Text:
            return TextWord(column, isJet3);
        case access::Kind::Memo:
            return "MEMO";
        case access::Kind::Guid:
            return "GUID";
        case access::Kind::Numeric:
            return "DECIMAL(" + std::to_string(column.precision) + "," + std::to_string(column.scale) + ")";
        case access::Kind::BigInt:
            return "BIGINT";
        default:
            return "LONGBINARY";
    }
}

}  // namespace

ColumnType TypeOf(const access::Column& column, bool isJet3) {
    constexpr int kWideMemo = 203, kWideChar = 130, kNarrowChar = 129;
    ColumnType type = ReadDeclaredType(DeclaredWord(column, isJet3));
    if (column.kind == access::Kind::Numeric)
        type.daoType = dbDecimal;
    if (column.kind == access::Kind::Memo && !isJet3)
        type.adoType = kWideMemo;
    if (column.kind == access::Kind::Text && column.fixed)
        type.adoType = isJet3 ? kNarrowChar : kWideChar;
    if (column.kind == access::Kind::Complex)
        type.daoType = kComplex;
    if (column.kind == access::Kind::ExtendedDate)
        type.daoType = kExtendedDate;
    return type;
}

}  // namespace vellumark::dao
