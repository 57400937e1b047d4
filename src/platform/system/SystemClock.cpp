#include "platform/system/SystemClock.h"

#include <chrono>

namespace pulselark {

std::int64_t SystemClock::Milliseconds() {
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

} // namespace pulselark
