#include "support/Signals.h"

#include <cmath>
#include <numbers>
#include <random>

namespace pulselark {

void FillSine(EcgBuffer& ecg, double hz, double amplitude) {
    for (Long i = 1; i <= EcgBufferSize; ++i)
        ecg[i] = static_cast<float>(amplitude * std::sin(2 * std::numbers::pi * hz * i / SamplesPerSecond));
}

void FillBeats(EcgBuffer& ecg, double period, unsigned seed) {
    std::minstd_rand random(seed + 1);
    for (Long i = 1; i <= EcgBufferSize; ++i) {
        const double t = static_cast<double>(i) / SamplesPerSecond;
        const double fromBeat = t - period * std::round(t / period);
        const double noise = static_cast<double>(random() % 1000) / 1000.0;
        ecg[i] = static_cast<float>(600 * std::exp(-fromBeat * fromBeat / (2 * 0.012 * 0.012)) + noise);
    }
}

void MakeSession(Long seconds, unsigned seed) {
    ResetSessionBuffers();
    FillBeats(EcgA, 0.75, seed);
    FillBeats(EcgB, 0.8, seed + 1);
    for (Long second = 1; second <= seconds; ++second) {
        const double breath = std::sin(2 * std::numbers::pi * 0.1 * second + seed);
        IbiA[second] = static_cast<float>(0.75 + 0.04 * breath);
        IbiB[second] = static_cast<float>(0.8 + 0.03 * breath);
    }
    SessionSeconds = RecordedSeconds = seconds;
    SessionTick = 1;
    SessionUnsaved = Off;
}

} // namespace pulselark
