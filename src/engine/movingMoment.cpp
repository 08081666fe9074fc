#include "engine/movingMoment.h"

namespace vellumark {

namespace {

using platform::MoveUnit;

constexpr std::int64_t kSecondsPerDay = 86400;
constexpr int kLastDayOfEveryMonth = 28;

// 0 for units that are not so many seconds.
std::int64_t SecondsOf(MoveUnit unit) {
    switch (unit) {
        case MoveUnit::Hour:
            return 3600;
        case MoveUnit::Minute:
            return 60;
        case MoveUnit::Second:
            return 1;
        default:
            return 0;
    }
}

}  // namespace

MovingMoment::MovingMoment(const platform::Moment& start, MoveUnit unit)
    : start_(start),
      unit_(unit),
      startDay_(platform::DayNumber(start.date)),
      startSecond_(start.time.hour * 3600 + start.time.minute * 60 + start.time.second),
      unitSeconds_(SecondsOf(unit)),
      moved_(start),
      movedDay_(startDay_) {}

const platform::Moment& MovingMoment::MovedBy(int amount) {
    if (unit_ == MoveUnit::Day) {
        GoToDay(startDay_ + amount, amount);
    } else if (unitSeconds_ > 0) {
        const std::int64_t seconds = startDay_ * kSecondsPerDay + startSecond_ + amount * unitSeconds_;
        std::int64_t day = seconds / kSecondsPerDay;
        int rest = static_cast<int>(seconds % kSecondsPerDay);
        if (rest < 0) {
            rest += kSecondsPerDay;
            --day;
        }
        GoToDay(day, amount);
        moved_.time = {rest / 3600, rest / 60 % 60, rest % 60};
    } else {
        moved_ = platform::Move(start_, unit_, amount);
    }
    return moved_;
}

void MovingMoment::GoToDay(std::int64_t day, int amount) {
    if (day == movedDay_)
        return;
    if (day == movedDay_ + 1 && moved_.date.day < kLastDayOfEveryMonth)
        ++moved_.date.day;
    else
        moved_.date = platform::Move(start_, unit_, amount).date;
    movedDay_ = day;
}

}  // namespace vellumark
