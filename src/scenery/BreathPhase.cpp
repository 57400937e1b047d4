#include "scenery/BreathPhase.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace pulselark {

double BreathPhase::Period() const {
    constexpr double SecondsPerMinute = 60;
    return SecondsPerMinute / rate_;
}

Breath BreathPhase::At(double now) const {
    const double breaths = (now - begin_) / Period();
    const double done = breaths - std::floor(breaths);
    const double turn = 1 / (balance_ + 1);
    Breath breath;
    breath.In = done < turn;
    breath.Part = breath.In ? done / turn : (done - turn) / (1 - turn);
    const double fall = (1 + std::cos(std::numbers::pi * breath.Part)) / 2;
    breath.Size = EmptySize + (1 - EmptySize) * (breath.In ? 1 - fall : fall);
    return breath;
}

// Moves the beginning so that the same part of the same half of the breath stands at `now`.
void BreathPhase::Change(double& setting, double value, double now) {
    if (value == setting)
        return;
    const Breath breath = At(now);
    setting = value;
    const double turn = 1 / (balance_ + 1);
    const double done = breath.In ? breath.Part * turn : turn + breath.Part * (1 - turn);
    begin_ = now - done * Period();
}

void BreathPhase::SetRate(double rate, double now) {
    if (std::isfinite(rate))
        Change(rate_, std::clamp(rate, LowestRate, HighestRate), now);
}

void BreathPhase::SetBalance(double balance, double now) {
    if (std::isfinite(balance))
        Change(balance_, std::clamp(balance, LowestBalance, HighestBalance), now);
}

} // namespace pulselark
