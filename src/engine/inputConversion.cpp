#include "engine/inputConversion.h"

#include "engine/modTargetFormat.h"
#include "platform/text.h"
#include "repository/modSequentialFileServices.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

char DatetimeKind(DataType type) {
    switch (type) {
        case DataType::Date:
            return 'D';
        case DataType::Time:
            return 'T';
        case DataType::TimeStamp:
            return 'S';
        default:
            return ' ';
    }
}

bool IsInQuotes(const ReaderColumn& column, const ValueSource& source) {
    if (column.dataType == DataType::Blob)
        return false;
    if (source.quotesCode == "D")
        return column.options->InputInQuotes(GroupOf(column.dataType));
    return source.quotesCode == "Q";
}

// A source of permitted values has the pattern "0", which holds nothing either.
EditPattern InputPattern(const ReaderColumn& column, const ValueSource& source) {
    EditPattern pattern = CompileEditPattern(source.datetimePattern);
    if (pattern.tokens.empty())
        pattern = CompileEditPattern(column.options->InputPattern(GroupOf(column.dataType)));
    return pattern;
}

}  // namespace

ConversionCodes::ConversionCodes(int conversionId) {
    if (conversionId < 1)
        return;
    dao::Recordset rows = ValuesDatabase.OpenRecordset(
        "select [Code], [Value] from [Conversion Code Value] where [FK CNV Id] = ?", {conversionId});
    for (; !rows.IsEOF(); rows.MoveNext())
        if (!rows.IsNull("Code"))
            values_.emplace(rows.Text("Code"), rows.Text("Value"));
}

std::string_view ConversionCodes::Value(std::string_view code) const {
    const auto found = values_.find(code);
    return found == values_.end() ? code : std::string_view(found->second);
}

bool ConversionCodes::Less::operator()(std::string_view a, std::string_view b) const {
    return platform::LessIgnoringCase(a, b);
}

InputConversion::InputConversion(const ReaderColumn& column, const ValueSource& source)
    : inQuotes_(IsInQuotes(column, source)),
      datetimeKind_(DatetimeKind(column.dataType)),
      inputPattern_(InputPattern(column, source)),
      year2000Conversion_(column.options->year2000Conversion),
      format_(column.format),
      outputPattern_(column.outputPattern),
      codes_(source.conversionId) {}

void InputConversion::ConvertInputValue(std::string& out, std::string_view text) {
    if (inQuotes_)
        text = StripOuterCharacters(text);
    if (datetimeKind_ != ' ') {
        if (codes_.IsEmpty())
            return AppendDatetimeLiteral(out, text);
        literal_.clear();
        AppendDatetimeLiteral(literal_, text);
        text = literal_;
    }
    out += codes_.IsEmpty() ? text : codes_.Value(text);
}

void InputConversion::AppendDatetimeLiteral(std::string& out, std::string_view text) {
    canonical_.clear();
    AppendParsed(canonical_, datetimeKind_, text, inputPattern_, year2000Conversion_);
    if (datetimeKind_ == 'D')
        out += DateLiteral(format_, canonical_, outputPattern_);
    else if (datetimeKind_ == 'T')
        out += TimeLiteral(format_, canonical_, outputPattern_);
    else
        out += TimestampLiteral(format_, canonical_, outputPattern_);
}

}  // namespace vellumark
