#include "analysis/MonitorClock.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace pulselark {

namespace {

// In milliseconds. The first samples of a monitor may have waited in its memory.
constexpr Long SettlingTime = 1000;
constexpr Long WindowLength = 2000;
constexpr int WindowsToKnow = 5;
constexpr int Memory = 10; // windows
// What lies further off the line, twice and to the same side, is a loss and no wandering clock.
constexpr double LargestWandering = 4;

double Gain(int windows) {
    return 2.0 * (2 * windows - 1) / (windows * (windows + 1));
}

double DriftGain(int windows) {
    return 6.0 / (windows * (windows + 1));
}

double Seconds(Long milliseconds) {
    return milliseconds / 1000.0;
}

} // namespace

void MonitorClock::Connect() {
    if (!usual_ && windows_ > 0) { // too short for a drift
        usual_ = offset_;
        drift_ = 0;
    }
    again_ = usual_.has_value();
    connectedAt_.reset();
    windowOpen_ = false;
    windows_ = 0;
    aside_ = 0;
    loss_ = 0;
    offset_ = UsualLag();
}

void MonitorClock::Compare(Long now, double behind) {
    if (!connectedAt_) {
        connectedAt_ = now;
        at_ = Seconds(now);
    }
    if (now - *connectedAt_ < SettlingTime)
        return;
    if (!std::exchange(windowOpen_, true)) {
        windowStart_ = now;
        least_ = behind;
    }
    least_ = std::min(least_, behind);
    if (now - windowStart_ < WindowLength)
        return;
    windowOpen_ = false;
    CloseWindow(Seconds(windowStart_ + (now - windowStart_) / 2));
}

void MonitorClock::CloseWindow(double time) {
    const double residual = windows_ == 0 ? 0 : least_ - (offset_ + drift_ * (time - at_));
    if (StepsAside(residual))
        return;
    ++windows_;
    Follow(time, residual);
    if (!usual_ && windows_ == WindowsToKnow)
        usual_ = offset_ - drift_ * (time - Seconds(*connectedAt_));
}

// A window far off the line waits for the next one to say the same. What both say is a loss if samples are
// missing; if there are too many, the line begins anew there.
bool MonitorClock::StepsAside(double residual) {
    const double before = std::exchange(aside_, 0);
    if (!usual_ || std::abs(residual) <= LargestWandering)
        return false;
    if (before * residual <= 0) {
        aside_ = residual;
        return true;
    }
    if (residual < 0) {
        again_ = true;
        windows_ = 0;
        return false;
    }
    loss_ = static_cast<Long>(Round(std::min(before, residual)));
    return true;
}

void MonitorClock::Follow(double time, double residual) {
    if (windows_ == 1) {
        offset_ = least_;
        at_ = time;
        return;
    }
    const double elapsed = time - at_;
    const int memory = again_ ? Memory : std::min(windows_, Memory);
    // The first windows after a loss tell where the count has begun, and nothing about the drift.
    const bool settled = !again_ || windows_ > 2;
    const double gain = settled ? Gain(memory) : 1.0 / windows_;
    offset_ += drift_ * elapsed + gain * residual;
    drift_ += settled ? DriftGain(memory) * residual / elapsed : 0;
    at_ = time;
}

double MonitorClock::Missing(Long now) const {
    if (!usual_ || windows_ == 0)
        return 0;
    return offset_ + drift_ * (Seconds(now) - at_) - *usual_;
}

Long MonitorClock::TakeLoss() {
    return std::exchange(loss_, 0);
}

} // namespace pulselark
