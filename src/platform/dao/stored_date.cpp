#include "platform/dao/stored_date.h"

#include <algorithm>
#include <optional>

#include "platform/calendar.h"
#include "platform/text.h"

namespace vellumark::dao {

namespace {

using platform::Date;
using platform::Time;

constexpr int kAdoDate = 133;  // a day without a time

// Takes what it recognises off the front of a text.
class DateReader {
 public:
    explicit DateReader(std::string_view text) : text_(text) {}

    bool AtEnd() const { return text_.empty(); }

    std::optional<Date> TakeDate() {
        constexpr std::size_t length = 10;
        const std::optional<Date> date = platform::ParseDate(text_.substr(0, length));
        if (date)
            text_.remove_prefix(length);
        return date ? date : TakeDateWithName();
    }

    void SkipSeparator() {
        if (text_.size() > 1 && (text_[0] == ' ' || text_[0] == '-'))
            text_.remove_prefix(1);
    }

    // "04:05:06", "04.05.06" with or without a fraction, or "04:05AM".
    std::optional<Time> TakeTime() {
        Time time;
        const std::string_view start = text_;
        if (TakeDigits(2, time.hour) && TakeSeparator() && TakeDigits(2, time.minute)) {
            if (TakeHalfDay(time) || (TakeSeparator() && TakeDigits(2, time.second) && TakeFraction()))
                if (time.hour < 24 && time.minute < 60 && time.second < 60)
                    return time;
        }
        text_ = start;
        return std::nullopt;
    }

 private:
    static bool IsDigit(char c) { return c >= '0' && c <= '9'; }

    // Up to `most` digits, at least one.
    bool TakeDigits(std::size_t most, int& number) {
        std::size_t count = 0;
        for (number = 0; count < std::min(most, text_.size()) && IsDigit(text_[count]); ++count)
            number = number * 10 + (text_[count] - '0');
        text_.remove_prefix(count);
        return count > 0;
    }

    bool Take(char wanted) {
        if (!text_.starts_with(wanted))
            return false;
        text_.remove_prefix(1);
        return true;
    }

    bool TakeSeparator() { return Take(':') || Take('.'); }

    bool TakeFraction() {
        int ignored = 0;
        return !Take('.') || TakeDigits(9, ignored);
    }

    // Noon is 12:00PM.
    bool TakeHalfDay(Time& time) {
        const bool isMorning = platform::EqualsIgnoringCase(text_.substr(0, 2), "AM");
        if (!isMorning && !platform::EqualsIgnoringCase(text_.substr(0, 2), "PM"))
            return false;
        text_.remove_prefix(2);
        if (time.hour < 1 || time.hour > 12)
            return false;
        time.hour = time.hour % 12 + (isMorning ? 0 : 12);
        return true;
    }

    bool TakeMonthName(int& month) {
        for (month = 1; month <= 12; ++month)
            if (platform::StartsWithIgnoringCase(text_, platform::ShortMonthName(month))) {
                text_.remove_prefix(3);
                return true;
            }
        return false;
    }

    // "Feb 3 2001".
    std::optional<Date> TakeDateWithName() {
        const std::string_view start = text_;
        Date date;
        if (TakeMonthName(date.month) && Take(' ') && (Take(' '), TakeDigits(2, date.day)) && Take(' ') &&
            TakeDigits(4, date.year) && date.year > 0 && date.day > 0 &&
            date.day <= platform::DaysInMonth(date.year, date.month))
            return date;
        text_ = start;
        return std::nullopt;
    }

    std::string_view text_;
};

struct Parts {
    std::optional<Date> date;
    std::optional<Time> time;
};

// Neither part when the text is something else.
Parts ReadParts(std::string_view text) {
    DateReader reader(text);
    Parts parts;
    parts.date = reader.TakeDate();
    if (parts.date)
        reader.SkipSeparator();
    parts.time = reader.TakeTime();
    return reader.AtEnd() ? parts : Parts{};
}

}  // namespace

DateForm DateFormOf(const ColumnType& type) {
    if (type.daoType == dbTime)
        return DateForm::Time;
    if (type.daoType != dbDate && type.daoType != dbTimeStamp)
        return DateForm::None;
    return type.adoType == kAdoDate ? DateForm::Day : DateForm::Moment;
}

bool AppendStoredDate(std::string& out, DateForm form, std::string_view text) {
    const Parts parts = ReadParts(text);
    if (form == DateForm::None || (!parts.date && !parts.time))
        return false;
    const platform::Moment moment{parts.date.value_or(Date{}), parts.time.value_or(Time{})};
    if (form == DateForm::Time)
        platform::AppendTime(out, moment.time);
    else if (form == DateForm::Day && moment.time == Time{})
        platform::AppendDate(out, moment.date);
    else
        platform::AppendMoment(out, moment);
    return true;
}

}  // namespace vellumark::dao
