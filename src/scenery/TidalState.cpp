#include "scenery/TidalState.h"

#include "scenery/Whole.h"

#include <algorithm>
#include <cmath>

namespace pulselark {

namespace {

// Copies what is a number and not negative; the scale follows the peak at once upwards and slowly downwards,
// so that a curve is neither cut nor jumps.
template <std::size_t Count>
void TakeArray(const LinkMessage& message, std::array<float, Count>& items, double& scale) {
    constexpr double Fall = 0.97, Least = 1e-9, Largest = 1e30;
    double peak = Least;
    for (std::size_t i = 0; i < Count; ++i) {
        const double item = message.Items[i];
        items[i] = static_cast<float>(item > 0 && item < Largest ? item : 0.0);
        if (i > 0) // the first is the level about which the signal swings
            peak = std::max(peak, static_cast<double>(items[i]));
    }
    scale = std::max(peak, std::min(scale * Fall, peak * 4));
}

} // namespace

bool TidalState::TakeCommand(int command, double p1) {
    constexpr int LongestSession = 360000, Schemes = 5;
    if (command == CmdTick && WholeBetween(p1, 0, LongestSession)) {
        const int second = static_cast<int>(p1);
        if (second < Second)
            Coherence.clear();
        Second = second;
        return true;
    }
    if (command == CmdSessionStart) {
        const int scheme = Scheme;
        *this = TidalState{};
        Scheme = scheme;
        return true;
    }
    if (command >= CmdStyle && command < CmdStyle + Schemes) {
        Scheme = command - CmdStyle;
        return true;
    }
    return false;
}

void TidalState::TakeCoherence(double value) {
    constexpr double Most = 999;
    Coherence.push_back(static_cast<float>(std::clamp(value, 0.0, Most)));
    if (Coherence.size() > HistorySeconds)
        Coherence.erase(Coherence.begin());
}

bool TidalState::Take(const LinkMessage& message) {
    switch (message.Kind) {
    case LinkKind::Command:
        return WholeBetween(message.Command, 0, CmdSceneRect) &&
               TakeCommand(static_cast<int>(message.Command), message.Parameter[0]);
    case LinkKind::Spectrum:
        TakeArray(message, Spectrum, SpectrumScale);
        return true;
    case LinkKind::HeartRate:
        TakeArray(message, HeartRate, HeartRateScale);
        return true;
    case LinkKind::Value:
        if (!std::isfinite(message.Value))
            return false;
        TakeCoherence(message.Value);
        return true;
    }
    return false;
}

} // namespace pulselark
