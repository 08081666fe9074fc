#include "schema/modDataTypes.h"

#include <algorithm>
#include <array>

#include "platform/dao/declared_type.h"
#include "platform/dialogs.h"
#include "schema/modDatabaseConnection.h"

namespace vellumark {

namespace {

enum AdoCode { adInteger = 3, adChar = 129 };

// Where the size of a column comes from: the rule's own number, the reported length when it is above 0, or
// the reported length whenever there is one.
enum class SizeFrom { Rule, LengthAboveZero, LengthNotNull };

struct AdoRule {
    int code;
    std::string_view name;
    DataType type;
    int size;
    SizeFrom sizeFrom = SizeFrom::Rule;
    int defaultPrecision = 0;
};

constexpr auto kLength = SizeFrom::LengthAboveZero;
constexpr auto kNotNull = SizeFrom::LengthNotNull;

// Some of these are not what one would guess; definitions made long ago rest on them.
constexpr std::array kAdoRules = {
    AdoRule{0, "adEmpty", DataType::Character, 80},
    AdoRule{2, "adSmallInt", DataType::Integer, 2},
    AdoRule{adInteger, "adInteger", DataType::LongInteger, 4},
    AdoRule{4, "adSingle", DataType::Single, 4, SizeFrom::Rule, 7},
    AdoRule{5, "adDouble", DataType::Double, 8, SizeFrom::Rule, 15},
    AdoRule{6, "adCurrency", DataType::Double, 8},
    AdoRule{7, "adDate", DataType::Date, 8},
    AdoRule{8, "adBSTR", DataType::Blob, 4096, kLength},
    AdoRule{9, "adIDispatch", DataType::Character, 80, kLength},
    AdoRule{10, "adError", DataType::Character, 80, kLength},
    AdoRule{11, "adBoolean", DataType::Boolean, 2},
    AdoRule{12, "adVariant", DataType::Variant, 16},
    AdoRule{13, "adIUnknown", DataType::Character, 80, kLength},
    AdoRule{14, "adDecimal", DataType::Double, 8},
    AdoRule{16, "adTinyInt", DataType::TinyInteger, 2},
    AdoRule{17, "adUnsignedTinyInt", DataType::TinyInteger, 2},
    AdoRule{18, "adUnsignedSmallInt", DataType::Integer, 2},
    AdoRule{19, "adUnsignedInt", DataType::Integer, 2},
    AdoRule{20, "adBigInt", DataType::BigInteger, 8},
    AdoRule{21, "adUnsignedBigInt", DataType::BigInteger, 8},
    AdoRule{64, "adFileTime", DataType::Time, 8},
    AdoRule{72, "adGUID", DataType::Blob, 1024},
    AdoRule{128, "adBinary", DataType::Blob, 4096, kLength},
    AdoRule{adChar, "adChar", DataType::Character, 8, kLength},
    AdoRule{130, "adWChar", DataType::Character, 80, kLength},
    AdoRule{131, "adNumeric", DataType::Double, 8},
    AdoRule{132, "adUserDefined", DataType::Character, 80, kLength},
    AdoRule{133, "adDBDate", DataType::Date, 8},
    AdoRule{134, "adDBTime", DataType::Time, 8},
    AdoRule{135, "adDBTimeStamp", DataType::TimeStamp, 8},
    AdoRule{136, "adChapter", DataType::Character, 80, kLength},
    AdoRule{137, "adDBFileTime", DataType::Time, 8},
    AdoRule{138, "adPropVariant", DataType::Variant, 16},
    AdoRule{139, "adVarNumeric", DataType::Double, 8},
    AdoRule{200, "adVarChar", DataType::Character, 80, kNotNull},
    AdoRule{201, "adLongVarChar", DataType::Character, 80, kNotNull},
    AdoRule{202, "adVarWChar", DataType::Character, 80, kLength},
    AdoRule{203, "adLongVarWChar", DataType::Character, 80, kNotNull},
    AdoRule{204, "adVarBinary", DataType::Blob, 4096, kLength},
    AdoRule{205, "adLongVarBinary", DataType::Blob, 4096, kLength},
};

int AdoSize(const AdoRule& rule, const std::optional<int>& length) {
    const bool taken = (rule.sizeFrom == SizeFrom::LengthNotNull && length) ||
                       (rule.sizeFrom == SizeFrom::LengthAboveZero && length.value_or(0) > 0);
    return taken ? *length : rule.size;
}

struct DaoRule {
    int code;
    std::string_view name;
    DataType type;
    int precision = 0;
    int size = 0;              // 0 for the field's own
    bool keepsLength = false;  // the maximum length is the field's size, else 0
    bool unlimited = false;    // a field without a size counts as 1024
};

constexpr std::array kDaoRules = {
    DaoRule{dao::dbBoolean, "dbBoolean", DataType::Boolean},
    DaoRule{dao::dbByte, "dbByte", DataType::TinyInteger, 3, 1},
    DaoRule{dao::dbInteger, "dbInteger", DataType::Integer, 5, 2},
    DaoRule{dao::dbLong, "dbLong", DataType::LongInteger, 10, 4},
    DaoRule{dao::dbCurrency, "dbCurrency", DataType::Double, 15, 8},
    DaoRule{dao::dbSingle, "dbSingle", DataType::Single, 7, 4},
    DaoRule{dao::dbDouble, "dbDouble", DataType::Double, 15, 8},
    DaoRule{dao::dbDate, "dbDate", DataType::TimeStamp, 0, 8},
    DaoRule{dao::dbBinary, "dbBinary", DataType::Blob},
    DaoRule{dao::dbText, "dbText", DataType::Character, 0, 0, true},
    DaoRule{dao::dbLongBinary, "dbLongBinary", DataType::Blob, 0, 0, false, true},
    DaoRule{dao::dbMemo, "dbMemo", DataType::Character, 0, 0, true, true},
    DaoRule{dao::dbGUID, "dbGUID", DataType::Blob},
    DaoRule{dao::dbBigInt, "dbBigInt", DataType::LongInteger, 10, 4},
    DaoRule{dao::dbVarBinary, "dbVarBinary", DataType::Blob},
    DaoRule{dao::dbChar, "dbChar", DataType::Character, 0, 0, true},
    DaoRule{dao::dbNumeric, "dbNumeric", DataType::Double, 15, 8},
    DaoRule{dao::dbDecimal, "dbDecimal", DataType::Double, 15, 8},
    DaoRule{dao::dbFloat, "dbFloat", DataType::Double, 15, 8},
    DaoRule{dao::dbTime, "dbTime", DataType::Time, 0, 8},
    DaoRule{dao::dbTimeStamp, "dbTimeStamp", DataType::TimeStamp, 0, 8},
};

constexpr DaoRule kUnknownDaoRule{-1, "", DataType::Blob, 0, 0, false, true};
constexpr int kUnlimitedSize = 1024;
constexpr int kDB2BigIntegerSize = 8;

MappedType MapByRule(const DaoRule& rule, const DaoColumn& column) {
    const int own = rule.unlimited && column.size == 0 ? kUnlimitedSize : column.size;
    MappedType mapped;
    mapped.sourceName = rule.name;
    mapped.type = rule.type;
    mapped.maximumLength = rule.keepsLength ? own : 0;
    mapped.precision = rule.precision;
    mapped.size = rule.size > 0 ? rule.size : own;
    return mapped;
}

bool AskIsCharacter(const DaoColumn& column, const std::string& alternative) {
    return platform::AskYesNo("Cannot determine if the data type for the following is a Character or a " +
                              alternative + ".\n\nTable: " + std::string(column.table) +
                              "\nColumn: " + std::string(column.column) + "\n\nIs it a Character column?");
}

}  // namespace

MappedType MapAdoType(const AdoColumn& column) {
    MappedType mapped;
    mapped.maximumLength = column.maximumLength.value_or(0);
    mapped.precision = column.precision.value_or(0);
    const auto rule = std::ranges::find(kAdoRules, column.code, &AdoRule::code);
    if (rule == kAdoRules.end()) {
        mapped.sourceName = "? : " + std::to_string(column.code);
        mapped.size = 80;
        return mapped;
    }
    mapped.sourceName = rule->name;
    mapped.type = rule->type;
    mapped.size = AdoSize(*rule, column.maximumLength);
    if (mapped.precision == 0)
        mapped.precision = rule->defaultPrecision;
    if (column.code == adInteger && mapped.precision <= 5) {
        mapped.type = DataType::Integer;
        mapped.size = 2;
    }
    if (column.code == adChar && mapped.maximumLength <= 0) {
        mapped.type = DataType::BigInteger;
        mapped.precision = 15;
    }
    return mapped;
}

MappedType MapDaoType(const DaoColumn& column, std::string_view dbmsType) {
    const auto rule = std::ranges::find(kDaoRules, column.code, &DaoRule::code);
    MappedType mapped = MapByRule(rule == kDaoRules.end() ? kUnknownDaoRule : *rule, column);
    if (rule == kDaoRules.end())
        mapped.sourceName = "db... Unknown-" + std::to_string(column.code);
    const bool mayBeBigInteger =
        column.code == dao::dbText && column.size == kDB2BigIntegerSize && dbmsType == kDbmsDB2;
    if (mayBeBigInteger && !AskIsCharacter(column, "Big Integer")) {
        mapped.type = DataType::BigInteger;
        mapped.maximumLength = 0;
        mapped.precision = 15;
    }
    if (column.code == dao::dbMemo && dbmsType == kDbmsSqlServer && !AskIsCharacter(column, "Binary")) {
        mapped.type = DataType::Blob;
        mapped.maximumLength = 0;
    }
    return mapped;
}

}  // namespace vellumark
