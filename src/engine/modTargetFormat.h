#pragma once

#include <string>
#include <string_view>

#include "platform/calendar.h"
#include "repository/modEditPatterns.h"
#include "repository/modTargetFormats.h"

// How each Target format writes values, and the words of its statements.
namespace vellumark {

// `outputPattern` is looked at for delimited text only. A time of hour 24 stays in its canonical text where
// the format has the twelve-hour clock. `fraction` is the six characters behind the seconds.
void AppendDateLiteral(std::string& out, TargetFormat format, const platform::Date& date,
                       const EditPattern& outputPattern);
void AppendTimeLiteral(std::string& out, TargetFormat format, const platform::Time& time,
                       const EditPattern& outputPattern);
void AppendTimestampLiteral(std::string& out, TargetFormat format, const platform::Moment& moment,
                            std::string_view fraction, const EditPattern& outputPattern);

// The same from canonical text. Any other text is given back as it stands.
std::string DateLiteral(TargetFormat format, std::string_view value, const EditPattern& outputPattern);
std::string TimeLiteral(TargetFormat format, std::string_view value, const EditPattern& outputPattern);
std::string TimestampLiteral(TargetFormat format, std::string_view value, const EditPattern& outputPattern);

// For a value that is not empty: the caller has drawn one for an empty value.
std::string BooleanLiteral(TargetFormat format, std::string_view value);

struct LiteralAffixes {
    std::string prefix;
    std::string suffix;
};

// What stands around a value in a statement. Delimited text has its own quoting rules, but for "Blob".
LiteralAffixes LiteralAffixesFor(TargetFormat format, DataType type);

// The words of an insert statement. `nameSuffix` follows the table's name, `terminator` is a line of its own.
struct FormatWords {
    std::string_view insertHead;
    std::string_view nameSuffix;
    std::string_view terminator;
    std::string_view nullWord;
    bool writesCommit;
};

const FormatWords& WordsOf(TargetFormat format);

}  // namespace vellumark
