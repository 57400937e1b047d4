#include "analysis/BeatShapes.h"

#include <algorithm>
#include <cmath>

namespace pulselark {

namespace {

constexpr double NormalPace = 0.1, EctopicPace = 0.15;
constexpr double SameKind = 0.75;   // agreement of two ectopic beats of one origin
constexpr double LeastSeen = 3;     // times that a kind was seen before it is one
constexpr double Forgetting = 0.98; // per ectopic beat
constexpr std::size_t MostKinds = 3;
// A beat may be shifted to fit, yet the more it is, the less it agrees.
constexpr int LongestLag = 6, FreeLag = 2; // samples
constexpr double LagPenalty = 0.055;       // for each sample beyond

std::size_t Place(int k) {
    return static_cast<std::size_t>(k);
}

double Agreement(const Beat& beat, const std::array<double, Beat::ShapeSize>& shape, int lag) {
    double product = 0, squares = 1;
    const int from = std::max(2, 2 - lag), to = std::min(Beat::ShapeSize - 3, Beat::ShapeSize - 3 - lag);
    for (int k = from; k <= to; ++k) {
        const double x = static_cast<double>(beat.Shape[Place(k + lag)]);
        const double y = shape[Place(k)];
        product += x * y;
        squares += x * x + y * y;
    }
    return 2 * product / squares - LagPenalty * std::max(0, std::abs(lag) - FreeLag);
}

} // namespace

BeatShapes::Match BeatShapes::Compare(const Beat& beat, const Shape& shape) {
    std::array<double, 2 * LongestLag + 1> agreement{};
    for (int lag = -LongestLag; lag <= LongestLag; ++lag)
        agreement[Place(lag + LongestLag)] = Agreement(beat, shape, lag);
    const auto best = std::max_element(agreement.begin(), agreement.end());
    Match match{std::max(0.0, *best), static_cast<double>(best - agreement.begin()) - LongestLag};
    if (best != agreement.begin() && best + 1 != agreement.end()) {
        const double bend = best[-1] - 2 * best[0] + best[1];
        if (bend < -1e-9)
            match.Lag += std::clamp((best[-1] - best[1]) / (2 * bend), -0.5, 0.5);
    }
    return match;
}

BeatShapes::Shape BeatShapes::ShapeOf(const Beat& beat) {
    Shape shape{};
    std::copy(beat.Shape.begin(), beat.Shape.end(), shape.begin());
    return shape;
}

void BeatShapes::Approach(Shape& mean, const Beat& beat, double pace) {
    const int lag = static_cast<int>(std::lround(Compare(beat, mean).Lag));
    for (int k = std::max(0, -lag); k < std::min(Beat::ShapeSize, Beat::ShapeSize - lag); ++k)
        mean[Place(k)] += pace * (static_cast<double>(beat.Shape[Place(k + lag)]) - mean[Place(k)]);
}

void BeatShapes::Learn(const std::deque<Beat>& beats) {
    double best = -1;
    for (const Beat& candidate : beats) {
        double sum = 0;
        const Shape shape = ShapeOf(candidate);
        for (const Beat& other : beats)
            sum += Compare(other, shape).Agreement;
        if (sum <= best)
            continue;
        best = sum;
        normal_ = shape;
    }
    known_ = true;
    std::erase_if(ectopic_, [this](const Kind& kind) {
        Beat beat;
        std::copy(kind.Mean.begin(), kind.Mean.end(), beat.Shape.begin());
        return Compare(beat, normal_).Agreement > SameKind;
    });
}

void BeatShapes::AddNormal(const Beat& beat) {
    Approach(normal_, beat, NormalPace);
}

void BeatShapes::AddEctopic(const Beat& beat) {
    Kind* nearest = nullptr;
    double best = SameKind;
    for (Kind& kind : ectopic_) {
        kind.Count *= Forgetting;
        const double agreement = Compare(beat, kind.Mean).Agreement;
        if (agreement < best)
            continue;
        best = agreement;
        nearest = &kind;
    }
    if (nearest == nullptr) {
        if (ectopic_.size() == MostKinds)
            ectopic_.erase(std::min_element(ectopic_.begin(), ectopic_.end(),
                                            [](const Kind& a, const Kind& b) { return a.Count < b.Count; }));
        ectopic_.push_back({ShapeOf(beat), 1});
        return;
    }
    ++nearest->Count;
    Approach(nearest->Mean, beat, std::max(EctopicPace, 1 / nearest->Count));
}

double BeatShapes::Ectopic(const Beat& beat) const {
    double best = 0;
    for (const Kind& kind : ectopic_)
        if (kind.Count > LeastSeen - 0.1)
            best = std::max(best, Compare(beat, kind.Mean).Agreement);
    return best;
}

} // namespace pulselark
