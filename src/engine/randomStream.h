#pragma once

#include <cstdint>

namespace vellumark {

// The one stream of random numbers. It starts from a fixed seed, so that a run in a freshly started program
// repeats.
class RandomStream {
 public:
    // Uniform in [0, 1), in steps of 2^-24.
    double Next() {
        state_ += 0x9E3779B97F4A7C15U;
        std::uint64_t bits = state_;
        bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9U;
        bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EBU;
        return static_cast<double>((bits ^ (bits >> 31)) >> 40) * 0x1p-24;
    }

 private:
    std::uint64_t state_ = 0x56656C6C756D6172U;
};

// The stream of this start of the program.
RandomStream& SessionRandomStream();

// From `low` to `high`; but a `low` of 0 or less does not shift the result, which then runs from 1 to
// high - low + 1. Throws kOverflow beyond 32 bits.
int RandomInRange(RandomStream& random, int low, int high);

// From `start` to `end` when that is a range.
int RandomNumber(RandomStream& random, int start, int end);

// Row numbers 1, 2, 3 ... go round from `start` to `end`. Throws kDivisionByZero when `end` is just below
// `start`.
int ValueFromRange(int start, int end, int row);

}  // namespace vellumark
