#include "engine/modTargetFormat.h"

#include <array>
#include <cstddef>

#include "platform/text.h"

namespace vellumark {

namespace {

using platform::Date;
using platform::Moment;
using platform::Time;

constexpr std::size_t kCanonicalTimestampLength = 26;
constexpr std::size_t kMomentLength = 19;
constexpr std::size_t kFractionLength = 6;

// In the order of the enumerators of TargetFormat.
constexpr std::array<FormatWords, 8> kWords = {{
    {"insert into ", "", ";", "NULL", true},
    {"insert into [", "]", " ", "null", false},
    {"insert into ", "", ";", "NULL", true},
    {"insert into =", "", ";", "NULL", true},
    {"insert into ", "", " ", "(null)", true},
    {"insert into ", "", "/", "null", true},
    {"insert into ", "", "Go", "NULL", true},
    {"", "", "", "", false},
}};

// "mmm d yyyy"
void AppendNamedDate(std::string& out, const Date& date) {
    out += platform::ShortMonthName(date.month);
    out += ' ';
    if (date.day >= 10)
        out += static_cast<char>('0' + date.day / 10);
    out += static_cast<char>('0' + date.day % 10);
    out += ' ';
    platform::AppendFourDigits(out, date.year);
}

// "HH:nnAMPM" on the twelve-hour clock, which has no hour 24.
void AppendHalfDayTime(std::string& out, const Time& time) {
    const int hour = time.hour % 12;
    platform::AppendTwoDigits(out, hour == 0 ? 12 : hour);
    out += ':';
    platform::AppendTwoDigits(out, time.minute);
    out += time.hour < 12 ? "AM" : "PM";
}

void AppendHalfDayLiteral(std::string& out, const Time& time, std::string_view fixedDate) {
    if (time.hour > 23)
        return platform::AppendTime(out, time);
    out += fixedDate;
    AppendHalfDayTime(out, time);
}

void AppendNamedMoment(std::string& out, const Moment& moment, std::string_view fraction) {
    if (moment.time.hour > 23) {
        platform::AppendMoment(out, moment);
        out.append(".").append(fraction);
        return;
    }
    AppendNamedDate(out, moment.date);
    out += ' ';
    AppendHalfDayTime(out, moment.time);
}

void AppendDashedMoment(std::string& out, const Moment& moment, std::string_view fraction) {
    platform::AppendDate(out, moment.date);
    out += '-';
    platform::AppendTime(out, moment.time, '.');
    out.append(".").append(fraction);
}

LiteralAffixes DateTimeAffixes(TargetFormat format, std::string_view word) {
    switch (format) {
        case TargetFormat::Oracle:
            return {"TO_DATE('", "', 'YYYY-MM-DDHH24.MI.SS')"};
        case TargetFormat::SqlServer:
            return {"('", "')"};
        case TargetFormat::NonStopSql:
        case TargetFormat::NonStopSqlWithDefine:
            return {std::string(word) + " \"", "\""};
        default:
            return {"'", "'"};
    }
}

}  // namespace

void AppendDateLiteral(std::string& out, TargetFormat format, const Date& date,
                       const EditPattern& outputPattern) {
    switch (format) {
        case TargetFormat::Db2:
        case TargetFormat::NonStopSql:
        case TargetFormat::NonStopSqlWithDefine:
        case TargetFormat::Jet:
            return platform::AppendDate(out, date);
        case TargetFormat::Oracle:
            platform::AppendDate(out, date);
            out += "00.00.00";
            return;
        case TargetFormat::SqlServer:
            AppendNamedDate(out, date);
            out += " 12:00AM";
            return;
        case TargetFormat::Sybase:
            return AppendNamedDate(out, date);
        case TargetFormat::Delimited:
            return AppendFormatted(out, outputPattern, {date, {}, {}});
    }
}

void AppendTimeLiteral(std::string& out, TargetFormat format, const Time& time,
                       const EditPattern& outputPattern) {
    switch (format) {
        case TargetFormat::Db2:
        case TargetFormat::NonStopSql:
        case TargetFormat::NonStopSqlWithDefine:
            return platform::AppendTime(out, time, '.');
        case TargetFormat::Oracle:
            out += "0001-01-01";
            return platform::AppendTime(out, time, '.');
        case TargetFormat::SqlServer:
        case TargetFormat::Jet:
            return AppendHalfDayLiteral(out, time, "Jan 1 1900 ");
        case TargetFormat::Sybase:
            return AppendHalfDayLiteral(out, time, "");
        case TargetFormat::Delimited:
            return AppendFormatted(out, outputPattern, {{}, time, {}});
    }
}

void AppendTimestampLiteral(std::string& out, TargetFormat format, const Moment& moment,
                            std::string_view fraction, const EditPattern& outputPattern) {
    switch (format) {
        case TargetFormat::Db2:
        case TargetFormat::NonStopSql:
        case TargetFormat::NonStopSqlWithDefine:
            return AppendDashedMoment(out, moment, fraction);
        case TargetFormat::Oracle:
            platform::AppendDate(out, moment.date);
            return platform::AppendTime(out, moment.time, '.');
        case TargetFormat::SqlServer:
        case TargetFormat::Sybase:
        case TargetFormat::Jet:
            return AppendNamedMoment(out, moment, fraction);
        case TargetFormat::Delimited:
            return AppendFormatted(out, outputPattern, {moment.date, moment.time, fraction});
    }
}

std::string DateLiteral(TargetFormat format, std::string_view value, const EditPattern& outputPattern) {
    const auto date = platform::ParseDate(value);
    if (!date)
        return std::string(value);
    std::string literal;
    AppendDateLiteral(literal, format, *date, outputPattern);
    return literal;
}

std::string TimeLiteral(TargetFormat format, std::string_view value, const EditPattern& outputPattern) {
    const auto time = platform::ParseTime(value);
    if (!time)
        return std::string(value);
    std::string literal;
    AppendTimeLiteral(literal, format, *time, outputPattern);
    return literal;
}

std::string TimestampLiteral(TargetFormat format, std::string_view value, const EditPattern& outputPattern) {
    const auto moment = platform::ParseMoment(value.substr(0, kMomentLength));
    if (!moment || platform::CharacterCount(value) != kCanonicalTimestampLength)
        return std::string(value);
    std::string literal;
    AppendTimestampLiteral(literal, format, *moment, platform::RightCharacters(value, kFractionLength),
                           outputPattern);
    return literal;
}

std::string BooleanLiteral(TargetFormat format, std::string_view value) {
    const bool isTrue = platform::EqualsIgnoringCase(value, "TRUE");
    switch (format) {
        case TargetFormat::SqlServer:
            return isTrue ? "1" : "0";
        case TargetFormat::Jet:  // the wrong way round, and kept so
            return isTrue ? "0" : "-1";
        case TargetFormat::Delimited:
            return std::string(value);
        default:
            return isTrue ? "TRUE" : "FALSE";
    }
}

LiteralAffixes LiteralAffixesFor(TargetFormat format, DataType type) {
    if (type == DataType::Blob)
        return {"'", "'"};
    if (format == TargetFormat::Delimited)
        return {};
    switch (type) {
        case DataType::Character:
            return {"'", "'"};
        case DataType::Date:
            return DateTimeAffixes(format, "DATE");
        case DataType::Time:
            return DateTimeAffixes(format, "TIME");
        case DataType::TimeStamp:
            return DateTimeAffixes(format, "TIMESTAMP");
        default:
            return {};
    }
}

const FormatWords& WordsOf(TargetFormat format) {
    return kWords[static_cast<std::size_t>(format)];
}

}  // namespace vellumark
