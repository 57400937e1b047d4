#include "session/RecordingTime.h"

#include "platform/Platform.h"
#include "session/MainBuffers.h"

namespace pulselark {

Long NextSecondDue = 0, NextHalfDue = 0, AcquisitionTick = 0;

namespace {

constexpr double MillisecondsPerSample = 1000.0 / SamplesPerSecond;

std::uint32_t Bits(Long reading) {
    return static_cast<std::uint32_t>(reading);
}

} // namespace

Long ClockNow() {
    return static_cast<Long>(static_cast<std::uint32_t>(ThePlatform().Clock.Milliseconds()));
}

Long MillisecondsBetween(Long earlier, Long later) {
    return static_cast<Long>(Bits(later) - Bits(earlier));
}

Long Later(Long reading, Long milliseconds) {
    return static_cast<Long>(Bits(reading) + Bits(milliseconds));
}

Long SessionMilliseconds(Long reading) {
    return MillisecondsBetween(SessionStartTimeSaved, reading) - PausedTotalMs;
}

double SamplesByClock(Long reading) {
    return SessionMilliseconds(reading) / MillisecondsPerSample;
}

void AnchorSession(Long reading, double samples) {
    PausedTotalMs += SessionMilliseconds(reading) - static_cast<Long>(Round(samples * MillisecondsPerSample));
}

void SetFirstDueTimes(Long reading) {
    NextHalfDue = Later(reading, FirstHalfDue);
    NextSecondDue = Later(reading, FirstSecondDue);
}

} // namespace pulselark
