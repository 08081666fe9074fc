#include "platform/calendar.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

#include "engine/movingMoment.h"
#include "input.h"
#include "platform/dao/stored_date.h"
#include "platform/error.h"
#include "platform/number_text.h"
#include "targets.h"

namespace vellumark::fuzz {

namespace {

void CheckMoment(const platform::Moment& moment) {
    std::string text;
    AppendMoment(text, moment);
    Expect(platform::ParseMoment(text) == moment, "a moment written and read: " + text);
    const int day = DayNumber(moment.date);
    Expect(platform::DateOfDayNumber(day) == moment.date, "the date of a day's number: " + text);
    Expect(platform::ShortWeekdayName(moment.date).size() == 3, "each day has a name");
}

void CheckMove(const platform::Moment& moment, platform::MoveUnit unit, int amount) {
    using platform::MoveUnit;
    try {
        MovingMoment moving(moment, unit);
        const platform::Moment moved = Move(moment, unit, amount);
        Expect(moving.MovedBy(amount) == moved && moving.MovedBy(amount) == moved, "both ways to move");
        CheckMoment(moved);
        Expect(moved.date.year >= platform::kFirstYear && moved.date.year <= platform::kLastYear,
               "the years");
        const bool returns = unit != MoveUnit::Year && unit != MoveUnit::Month &&
                             moment.date.year >= platform::kFirstYear && moment.time.hour < 24 &&
                             amount != std::numeric_limits<int>::min();
        if (returns)
            Expect(Move(moved, unit, -amount) == moment, "moved there and back");
    } catch (const platform::Error& error) {
        Expect(error.Number() == platform::kInvalidProcedureCall, error.Line());
    }
}

void CheckStoredDate(dao::DateForm form, std::string_view text) {
    std::string stored, again;
    if (!dao::AppendStoredDate(stored, form, text)) {
        ExpectSame(stored, "", "nothing is appended for what is no date");
        return;
    }
    Expect(dao::AppendStoredDate(again, form, stored), "a stored date is a date: " + stored);
    ExpectSame(again, stored, "a date stored once more");
}

void CheckNumberText(double number) {
    if (!std::isfinite(number))
        return;
    const std::string text = platform::NumberText(number);
    double back = 1;
    std::from_chars(text.data(), text.data() + text.size(), back);
    Expect(back == number, "a number written and read: " + text);
}

}  // namespace

// How to move and by how much, a number's eight bytes, and a text that may be a date.
void FuzzCalendar(std::string_view bytes) {
    Input input(bytes);
    const auto unit = static_cast<platform::MoveUnit>(input.Choice(6));
    const auto form = static_cast<dao::DateForm>(input.Choice(4));
    const int amount = input.Number();
    double number = 0;
    if (const std::string_view stored = input.Bytes(sizeof number); stored.size() == sizeof number)
        std::memcpy(&number, stored.data(), sizeof number);
    const std::string text(input.Rest());

    CheckNumberText(number);
    CheckStoredDate(form, text);
    if (const auto moment = platform::ParseMoment(text)) {
        CheckMoment(*moment);
        CheckMove(*moment, unit, amount);
    }
}

}  // namespace vellumark::fuzz
