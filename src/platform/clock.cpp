#include "platform/clock.h"

#include <ctime>

namespace vellumark::platform {

std::string LocalNow() {
    return LocalText(std::chrono::system_clock::now());
}

std::string LocalText(std::chrono::system_clock::time_point moment) {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(moment);
    std::tm local{};
    localtime_r(&seconds, &local);
    char text[20];
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &local);
    return text;
}

}  // namespace vellumark::platform
