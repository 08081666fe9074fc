#include "platform/spreadsheet/cell_text.h"

#include <cstring>

#include "input.h"
#include "platform/calendar.h"
#include "platform/spreadsheet/xlsx_strings.h"
#include "targets.h"

namespace vellumark::fuzz {

namespace {

// Behind the day in February 1900 that spreadsheets count and the calendar doesn't have.
constexpr double kFirstExactDay = 61;

// Whole days are dates that can be read.
void CheckSerialDate(double serial) {
    std::string text;
    platform::AppendSerialDate(text, serial, false);
    platform::AppendSerialDate(text, serial, true);
    if (!(serial >= kFirstExactDay && serial <= 2958465) || serial != static_cast<int>(serial))
        return;
    text.clear();
    platform::AppendSerialDate(text, serial, false);
    const auto date = platform::ParseDate(text);
    Expect(date.has_value(), "a whole day is a date: " + text);
    Expect(platform::DayNumber(*date) == static_cast<int>(serial), "the day's number: " + text);
}

}  // namespace

// Eight bytes of a number and a text that may be a number format, a date or a duration.
void FuzzCellText(std::string_view bytes) {
    Input input(bytes);
    double number = 0;
    if (const std::string_view stored = input.Bytes(sizeof number); stored.size() == sizeof number)
        std::memcpy(&number, stored.data(), sizeof number);
    const std::string_view text = input.Rest();
    CheckSerialDate(number);
    CheckSerialDate(static_cast<double>(text.size() * 10007));
    std::string out;
    platform::AppendFormatted(out, number, platform::FormatOfCode(text), false);
    platform::AppendIsoDate(out, text);
    platform::AppendIsoDuration(out, text);
    out.clear();
    platform::AppendUnescaped(out, text);
    Expect(out.size() <= text.size(), "escapes are longer than what they stand for");
}

}  // namespace vellumark::fuzz
