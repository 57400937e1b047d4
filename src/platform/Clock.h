#pragma once

#include <cstdint>

namespace pulselark {

/// The multimedia clock: milliseconds that never go back.
class Clock {
public:
    virtual ~Clock() = default;
    virtual std::int64_t Milliseconds() = 0;
};

} // namespace pulselark
