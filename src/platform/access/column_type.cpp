#include "platform/access/column_type.h"

#include <string>

namespace vellumark::access {

namespace {

constexpr int kComplex = 101;
constexpr int kExtendedDate = 26;

std::string Sized(const std::string& word, int size) {
    return word + "(" + std::to_string(size) + ")";
}

std::string TextWord(const Column& column, bool isJet3) {
    const int characters = isJet3 ? column.length : column.length / 2;
    return Sized(isJet3 ? "VARCHAR" : "NVARCHAR", characters);
}

// The word that reads as the same type when others declare it.
std::string DeclaredWord(const Column& column, bool isJet3) {
    switch (column.kind) {
        case Kind::Boolean:
            return "YESNO";
        case Kind::Byte:
            return "BYTE";
        case Kind::Integer:
            return "SHORT";
        case Kind::Long:
            return "LONG";
        case Kind::Currency:
            return "CURRENCY";
        case Kind::Single:
            return "SINGLE";
        case Kind::Double:
            return "DOUBLE";
        case Kind::Date:
            return "DATETIME";
        case Kind::Binary:
            return Sized("BINARY", column.length);
        case Kind::Text:
            return TextWord(column, isJet3);
        case Kind::Memo:
            return "MEMO";
        case Kind::Guid:
            return "GUID";
        case Kind::Numeric:
            return "DECIMAL(" + std::to_string(column.precision) + "," + std::to_string(column.scale) + ")";
        case Kind::BigInt:
            return "BIGINT";
        default:
            return "LONGBINARY";
    }
}

}  // namespace

dao::ColumnType TypeOf(const Column& column, bool isJet3) {
    constexpr int kWideMemo = 203, kWideChar = 130, kNarrowChar = 129;
    dao::ColumnType type = dao::ReadDeclaredType(DeclaredWord(column, isJet3));
    if (column.kind == Kind::Numeric)
        type.daoType = dao::dbDecimal;
    if (column.kind == Kind::Memo && !isJet3)
        type.adoType = kWideMemo;
    if (column.kind == Kind::Text && column.fixed)
        type.adoType = isJet3 ? kNarrowChar : kWideChar;
    if (column.kind == Kind::Complex)
        type.daoType = kComplex;
    if (column.kind == Kind::ExtendedDate)
        type.daoType = kExtendedDate;
    return type;
}

}  // namespace vellumark::access
