#include "scenery/Easing.h"

#include <cmath>

namespace pulselark {

namespace {

constexpr double NineTenths = 3.89; // (1 + x) exp(-x) is 0.1 here
constexpr double Unseen = 0.0005;
constexpr double SoftStart = 0.7; // seconds in which the pace comes within 1/e

} // namespace

EasedValue::Motion EasedValue::MotionAt(double now) const {
    const double time = std::fmax(now - since_, 0);
    const double distance = from_ - target_;
    const double drive = speed_ + stiffness_ * distance;
    const double fading = std::exp(-stiffness_ * time);
    return {target_ + (distance + drive * time) * fading, (speed_ - stiffness_ * drive * time) * fading};
}

void EasedValue::Aim(double target, double now, double seconds) {
    const Motion motion = MotionAt(now);
    from_ = motion.Place;
    speed_ = motion.Speed;
    since_ = now;
    target_ = target;
    stiffness_ = NineTenths / seconds;
}

double EasedValue::At(double now) const {
    return MotionAt(now).Place;
}

bool EasedValue::Settled(double now) const {
    const Motion motion = MotionAt(now);
    return std::fabs(motion.Place - target_) < Unseen && std::fabs(motion.Speed) < Unseen;
}

double SceneClock::PaceAt(double now) const {
    return pace_ + (startPace_ - pace_) * std::exp(-(now - since_) / SoftStart);
}

double SceneClock::At(double now) const {
    const double time = now - since_;
    return passed_ + pace_ * time + (startPace_ - pace_) * SoftStart * (1 - std::exp(-time / SoftStart));
}

void SceneClock::SetPace(double pace, double now) {
    if (pace == pace_)
        return;
    passed_ = At(now);
    startPace_ = PaceAt(now);
    since_ = now;
    pace_ = pace;
}

bool SceneClock::Moving(double now) const {
    constexpr double Standing = 0.004;
    return pace_ > 0 || PaceAt(now) > Standing;
}

} // namespace pulselark
