#include "engine/modColumnValue.h"

#include <algorithm>

#include "engine/modWorkingDatabase.h"
#include "platform/text.h"

namespace vellumark {

namespace {

constexpr std::int64_t kLongestFilled = 2048;
constexpr std::string_view kNoFraction = "000000";

std::string_view DigitsOf(int number, const ColumnPlan& column, ValueContext& context) {
    const bool ofRange = column.number.kind == NumberKind::RowRange;
    return (ofRange ? context.rangeDigits : context.ownDigits).Of(number);
}

// As much of the column's name as leaves room for the number, then the number.
void AppendNameAndNumber(TextBuffer& out, const ColumnPlan& column, std::string_view digits) {
    const std::int64_t room = column.widths.maximumLength - static_cast<std::int64_t>(digits.size());
    if (room >= static_cast<std::int64_t>(column.name.size()))
        out.Append(column.name);
    else if (room > 0)
        out.Append(platform::LeftCharacters(column.name, static_cast<std::size_t>(room)));
    out.Append(digits);
}

// The value of the kinds whose makers write strings.
bool MakeText(std::string& value, ColumnPlan& column, const RowPosition& row, const ValueContext& context) {
    value.clear();
    switch (column.kind) {
        case ValueKind::Reader:
            return column.reader->fGetAlternateValue(row.rowCounter, value);
        case ValueKind::Date:
            AppendDateLiteral(value, context.format, column.moment.MovedBy(row.rangeValue).date,
                              column.outputPattern);
            break;
        case ValueKind::Time:
            AppendTimeLiteral(value, context.format,
                              platform::Move(context.options->defaultStartTime, column.unit, row.rangeValue),
                              column.outputPattern);
            break;
        default:
            AppendTimestampLiteral(value, context.format, column.moment.MovedBy(row.rangeValue), kNoFraction,
                                   column.outputPattern);
    }
    return true;
}

bool AppendMadeValue(TextBuffer& out, ColumnPlan& column, int number, const RowPosition& row,
                     ValueContext& context) {
    switch (column.kind) {
        case ValueKind::Fixed:
            out.Append(column.text);
            return true;
        case ValueKind::Stored:
            out.Append(context.stored->Value(column.storedPlace));
            return true;
        case ValueKind::NameAndNumber:
            AppendNameAndNumber(out, column, DigitsOf(number, column, context));
            return true;
        case ValueKind::Number:
            out.Append(DigitsOf(number, column, context));
            return true;
        case ValueKind::Boolean:
            out.Append(column.literals[RandomInRange(*context.random, 1, 2) == 1 ? 0 : 1]);
            return true;
        default:
            break;
    }
    if (!MakeText(context.scratch, column, row, context))
        return false;
    out.Append(context.scratch);
    return true;
}

void ConcatValueWithId(std::string& value, const ColumnPlan& column, int number) {
    if (column.concat == "B")
        value.insert(0, std::to_string(number));
    else if (column.concat == "E")
        value += std::to_string(number);
}

// Characters that the filled value has.
std::int64_t FilledLength(const ColumnPlan& column, std::int64_t length) {
    if (column.dataType != DataType::Character)
        return std::int64_t{column.widths.precision} - column.widths.scale;
    const std::int64_t whole = column.widths.maximumLength;
    return whole - length > kLongestFilled ? kLongestFilled : whole;
}

void FillColumnValue(std::string& value, const ColumnPlan& column) {
    if (column.fill != "B" && column.fill != "E")
        return;
    const auto length = static_cast<std::int64_t>(platform::CharacterCount(value));
    const std::size_t at = column.fill == "B" ? 0 : value.size();
    const std::int64_t room = FilledLength(column, length) - length;
    if (room <= 0)
        return;
    if (column.fillCharacter.size() == 1) {
        value.insert(at, static_cast<std::size_t>(room), column.fillCharacter[0]);
        return;
    }
    for (std::int64_t i = 0; i < room; ++i)
        value.insert(at, column.fillCharacter);
}

}  // namespace

int NextNumber(const NumberPlan& number, const RowPosition& row, RandomStream& random) {
    switch (number.kind) {
        case NumberKind::Sequence:
            return ValueFromRange(number.range.start, number.range.end, row.rowCounter);
        case NumberKind::Random:
            return RandomNumber(random, number.range.start, number.range.end);
        default:
            return row.rangeValue;
    }
}

bool fGenerateColumnValue(TextBuffer& out, ColumnPlan& column, const RowPosition& row,
                          ValueContext& context) {
    const int number = NextNumber(column.number, row, *context.random);
    const std::size_t start = out.Size();
    if (!AppendMadeValue(out, column, number, row, context))
        return false;
    if (column.finished)
        return true;
    std::string& value = context.scratch;
    value = out.View().substr(start);
    FinishValue(value, column, number);
    out.CutTo(start);
    out.Append(value);
    return true;
}

void FinishValue(std::string& value, const ColumnPlan& column, int number) {
    ConcatValueWithId(value, column, number);
    FillColumnValue(value, column);
    if (column.dataType)
        fValidateValue(value, column.widths, *column.dataType, column.tooLarge, false);
}

}  // namespace vellumark
