#include "platform/monitors/SimulatedHeart.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace pulselark {

namespace {

constexpr double Deviation = 0.004; // seconds
constexpr double EarlyAt = 0.62;    // of the interval
// A beat is seen from its P to the end of its T.
constexpr double SeenBefore = 0.5;
constexpr double SeenAfter = 0.8;

struct Bump {
    double Centre; // seconds from the R peak
    double Height; // millivolts
    double Width;  // standard deviation, seconds
    bool Stretches;
};

constexpr std::array<Bump, 6> NormalBeat{{{-0.170, 0.12, 0.022, true},
                                          {-0.028, -0.12, 0.009, false},
                                          {0.000, 1.15, 0.011, false},
                                          {0.029, -0.25, 0.010, false},
                                          {0.250, 0.16, 0.045, true},
                                          {0.285, 0.17, 0.030, true}}};
constexpr std::array<Bump, 3> EarlyBeat{
    {{0.000, 1.60, 0.022, false}, {0.070, -0.60, 0.030, false}, {0.290, -0.40, 0.060, true}}};

template <class Bumps>
double SumOf(const Bumps& bumps, double time, double stretch) {
    double sum = 0;
    for (const Bump& bump : bumps) {
        const double distance = (time - bump.Centre * (bump.Stretches ? stretch : 1)) / bump.Width;
        if (std::abs(distance) < 6)
            sum += bump.Height * std::exp(-distance * distance / 2);
    }
    return sum;
}

} // namespace

double SeededDraws::Even() {
    return static_cast<double>(engine_()) / 4294967296.0;
}

double SeededDraws::Normal() {
    const double length = std::sqrt(-2 * std::log(1 - Even()));
    return length * std::cos(2 * std::numbers::pi * Even());
}

SimulatedHeart::SimulatedHeart(const HeartManner& manner)
    : manner_(manner), breath_(2 * std::numbers::pi * manner.Breathing / 60), draws_(manner.Seed),
      phase_(1 - manner.Lateness) {
    manner_.Depth = std::min(manner_.Depth, 0.6 * manner_.Rate); // the rate stays above 0
}

double SimulatedHeart::PhaseAt(double time) const {
    const double swing = breath_ > 0 ? (1 - std::cos(breath_ * time)) / breath_ : 0;
    return (manner_.Rate * time + manner_.Depth * swing) / 60;
}

double SimulatedHeart::TimeOfPhase(double phase, double after) const {
    double early = after;
    double late = after + 1;
    while (PhaseAt(late) < phase)
        late += 1;
    constexpr int Halvings = 40;
    for (int i = 0; i < Halvings; ++i) {
        const double middle = (early + late) / 2;
        (PhaseAt(middle) < phase ? early : late) = middle;
    }
    return late;
}

void SimulatedHeart::AddBeat() {
    const double before = regular_;
    regular_ = TimeOfPhase(phase_, before);
    phase_ += 1;
    const double deviation = Deviation * draws_.Normal();
    const bool wanted = draws_.Even() * 100 < manner_.Ectopic;
    const bool early = wanted && !beats_.empty() && !beats_.back().Ectopic;
    const double time = early ? before + EarlyAt * (regular_ - before) : regular_ + deviation;
    beats_.push_back({time, early});
}

double SimulatedHeart::BeatMillivolts(std::size_t beat, double time) const {
    const double interval = beat > 0 ? beats_[beat].Time - beats_[beat - 1].Time : 60 / manner_.Rate;
    const double stretch = std::sqrt(std::clamp(interval, 0.4, 1.4) / 0.9);
    const double since = time - beats_[beat].Time;
    return beats_[beat].Ectopic ? SumOf(EarlyBeat, since, stretch) : SumOf(NormalBeat, since, stretch);
}

double SimulatedHeart::MillivoltsAt(double time) {
    while (beats_.empty() || beats_.back().Time < time + SeenBefore)
        AddBeat();
    while (beats_[oldest_].Time < time - SeenAfter)
        ++oldest_;
    double sum = 0;
    for (std::size_t beat = oldest_; beat < beats_.size(); ++beat)
        sum += BeatMillivolts(beat, time);
    // The chest moves the electrodes.
    const double breath = std::sin(breath_ * time);
    return sum * (1 + 0.05 * breath) + 0.03 * breath;
}

} // namespace pulselark
