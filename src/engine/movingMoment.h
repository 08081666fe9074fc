#pragma once

#include <cstdint>

#include "platform/calendar.h"

namespace vellumark {

// A moment moved by one amount after the other; amounts that follow each other come cheap.
class MovingMoment {
 public:
    MovingMoment() = default;
    MovingMoment(const platform::Moment& start, platform::MoveUnit unit);

    // Throws as platform::Move does.
    const platform::Moment& MovedBy(int amount);

 private:
    void GoToDay(std::int64_t day, int amount);

    platform::Moment start_;
    platform::MoveUnit unit_ = platform::MoveUnit::Day;
    std::int64_t startDay_ = 0;
    std::int64_t startSecond_ = 0;
    std::int64_t unitSeconds_ = 0;
    platform::Moment moved_;
    std::int64_t movedDay_ = 0;
};

}  // namespace vellumark
