#include "engine/randomStream.h"

#include <cmath>
#include <limits>

#include "platform/error.h"

namespace vellumark {

namespace {

int Narrow(std::int64_t number) {
    if (number < std::numeric_limits<int>::min() || number > std::numeric_limits<int>::max())
        throw platform::Error(platform::kOverflow, "Overflow");
    return static_cast<int>(number);
}

// Numbers of the range, less than 1 for one that runs backwards.
std::int64_t SizeOf(int start, int end) {
    return std::int64_t{end} - start + 1;
}

// 1 to `size`.
std::int64_t Draw(RandomStream& random, std::int64_t size) {
    const double drawn = random.Next() * static_cast<double>(size) + 1;
    return static_cast<std::int64_t>(size > 0 ? drawn : std::floor(drawn));
}

}  // namespace

RandomStream& SessionRandomStream() {
    static RandomStream stream;
    return stream;
}

int RandomInRange(RandomStream& random, int low, int high) {
    const std::int64_t drawn = Draw(random, SizeOf(low, high));
    return Narrow(low > 0 ? low + drawn - 1 : drawn);
}

int RandomNumber(RandomStream& random, int start, int end) {
    return Narrow(Draw(random, SizeOf(start, end)) + start - 1);
}

int ValueFromRange(int start, int end, int row) {
    const std::int64_t size = SizeOf(start, end);
    if (size == 0)
        throw platform::Error(platform::kDivisionByZero, "Division by zero");
    std::int64_t rest = row % size;
    if (rest != 0 && size < 0)
        rest += size;  // Int rounds down
    return Narrow(rest == 0 ? end : rest + start - 1);
}

}  // namespace vellumark
