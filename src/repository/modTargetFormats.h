#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The words that definitions store and every branch of the output goes by: Target formats and data types.
namespace vellumark {

enum class TargetFormat {
    Db2,
    Jet,
    NonStopSql,
    NonStopSqlWithDefine,
    SqlServer,
    Oracle,
    Sybase,
    Delimited,
};

std::string_view TargetFormatName(TargetFormat format);
// The whole word, in any case.
std::optional<TargetFormat> ParseTargetFormat(std::string_view text);

// The names that a list of `purpose` ("All", "DeleteSQL" or "CreateLoadFile") offers, in their order.
std::vector<std::string> FillDBMSList(std::string_view purpose);

enum class DataType {
    Character,
    Date,
    Time,
    TimeStamp,
    Blob,
    Boolean,
    Integer,
    LongInteger,
    TinyInteger,
    BigInteger,
    Currency,
    Single,
    Double,
    Variant,
};

std::string_view DataTypeName(DataType type);
// The whole word, in any case.
std::optional<DataType> ParseDataType(std::string_view text);

// "Double" and "Single" are the types whose numbers may hold a decimal point.
bool TakesDecimalPoint(DataType type);

// True when a key may go into a number field of that type.
bool fNumericKey(char key, DataType type, char decimalPoint);

char MachineDecimalPoint();

}  // namespace vellumark
