#pragma once

#include "platform/Clock.h"

#include <cstdint>
#include <string>

namespace pulselark {

class FakeClock final : public Clock {
public:
    std::int64_t Now = 0;
    std::int64_t PerReading = 0; ///< each reading takes this long
    std::string Date = "21/11/2026", Time = "17:45";
    std::int64_t Milliseconds() override { return Now += PerReading; }
    std::string LocalDate() override { return Date; }
    std::string LocalTime() override { return Time; }
    std::string Stamp() override { return "20261121-174500"; }
};

} // namespace pulselark
