#include "platform/system/SystemClock.h"

#include <array>
#include <chrono>
#include <ctime>

namespace pulselark {

std::int64_t SystemClock::Milliseconds() {
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

std::string SystemClock::ShortDate() {
    const std::time_t now = std::time(nullptr);
    std::tm today{};
    localtime_r(&now, &today);
    std::array<char, 16> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%d/%m/%Y", &today)};
}

} // namespace pulselark
