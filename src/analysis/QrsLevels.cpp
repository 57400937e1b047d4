#include "analysis/QrsLevels.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace pulselark {

namespace {

constexpr double Rate = 128;
constexpr int LongestLag = 3;              // samples between two marks of the same wave
constexpr int ShapeFrom = 6, ShapeTo = 26; // part of the shape that is compared
constexpr double RestPace = 0.1, TWavePace = 0.2;

constexpr float BeatsSteepness = 1.1F; // by which a beat is less steep than the others at most, at first

// Logistic regression, see the header; heights are natural logarithms.
constexpr double Constant = 0.897;
constexpr double PerBeatLevel = 0.551, PerBeatLevelAbove = 1.476;
constexpr double PerRestLevel = 1.542;
constexpr double PerBandAbove = 1.351;
constexpr double PerLikeness = -5.99, PerLikenessSquared = 7.361;
constexpr double PerInterval = 2.32, PerIntervalSquared = -0.579;
constexpr double InTWave = -0.73, PerTWaveLevel = 0.815, PerBeatLevelInTWave = 0.895;
constexpr double VeryEarly = -2.254;
constexpr double PerAhead = -1.528;

} // namespace

float QrsLevels::Recent::Median() const {
    const std::size_t size = std::min(Count, Kept);
    if (size == 0)
        return 0;
    auto sorted = Values;
    std::sort(sorted.begin(), sorted.begin() + static_cast<std::ptrdiff_t>(size));
    return (sorted[(size - 1) / 2] + sorted[size / 2]) / 2;
}

double QrsLevels::UsualInterval() const {
    return intervals_.Count > 0 ? intervals_.Median() : Rate;
}

void QrsLevels::Learn(std::span<const QrsCandidate> candidates) {
    *this = {};
    if (candidates.empty())
        return;
    std::vector<const QrsCandidate*> steepest;
    steepest.reserve(candidates.size());
    for (const QrsCandidate& candidate : candidates)
        steepest.push_back(&candidate);
    std::sort(steepest.begin(), steepest.end(),
              [](const auto* a, const auto* b) { return a->Steepness() > b->Steepness(); });
    const QrsCandidate& typical = *steepest[steepest.size() > 2 ? 1 : 0];
    const float top = typical.Height[QrsSignal::Qrs];
    heights_.Add(top);
    aboveHeights_.Add(typical.Height[QrsSignal::Above]);
    for (const QrsCandidate& candidate : candidates)
        if (candidate.Steepness() > typical.Steepness() - BeatsSteepness)
            beats_[beatCount_++ % Kept] = candidate.Found;
    restLevel_ = top - 2.5;
    tWaveLevel_ = top - 2;
}

double QrsLevels::Correlation(const Beat& one, const Beat& other) {
    double best = 0;
    for (int lag = -LongestLag; lag <= LongestLag; ++lag) {
        double product = 0, oneSquared = 0, otherSquared = 0;
        for (int k = ShapeFrom; k <= ShapeTo; ++k) {
            const double x = one.Shape[static_cast<std::size_t>(k)];
            const int shifted = k + lag;
            const double y = other.Shape[static_cast<std::size_t>(shifted)];
            product += x * y;
            oneSquared += x * x;
            otherSquared += y * y;
        }
        best = std::max(best, product / std::sqrt(oneSquared * otherSquared + 1));
    }
    return best;
}

double QrsLevels::LikenessToBeats(const Beat& beat) const {
    double best = 0;
    for (std::size_t i = 0; i < std::min(beatCount_, Kept); ++i)
        if (beats_[i].Time != beat.Time) // itself, after learning
            best = std::max(best, Correlation(beat, beats_[i]));
    return best;
}

double QrsLevels::Score(const QrsCandidate& candidate, double sinceLast) const {
    const double height = candidate.Height[QrsSignal::Qrs];
    const double overBeats = std::clamp(height - heights_.Median(), -4.0, 2.0);
    const double overRest = std::clamp(height - restLevel_, -2.0, 5.0);
    const double above = static_cast<double>(candidate.Height[QrsSignal::Above]) - height;
    const double overBeatsAbove =
        std::clamp<double>(candidate.Height[QrsSignal::Above] - aboveHeights_.Median(), -4.0, 2.0);
    const double like = LikenessToBeats(candidate.Found);
    const double interval = std::log(std::clamp(sinceLast / UsualInterval(), 0.2, 2.0));
    double score = Constant + PerBeatLevel * overBeats + PerBeatLevelAbove * overBeatsAbove +
                   PerRestLevel * overRest + PerBandAbove * above + PerLikeness * like +
                   PerLikenessSquared * like * like + PerInterval * interval +
                   PerIntervalSquared * interval * interval +
                   PerAhead * std::clamp<double>(candidate.Ahead, -3, 1);
    if (sinceLast < TWaveEnd)
        score += InTWave + PerTWaveLevel * std::clamp(height - tWaveLevel_, -2.0, 4.0) +
                 PerBeatLevelInTWave * overBeats;
    if (sinceLast < 0.3 * Rate)
        score += VeryEarly;
    return score;
}

void QrsLevels::AddBeat(const QrsCandidate& candidate, double interval) {
    if (interval > 0)
        intervals_.Add(static_cast<float>(interval));
    heights_.Add(candidate.Height[QrsSignal::Qrs]);
    aboveHeights_.Add(candidate.Height[QrsSignal::Above]);
    beats_[beatCount_++ % Kept] = candidate.Found;
}

void QrsLevels::AddOther(const QrsCandidate& candidate, double sinceLast) {
    const double height = candidate.Height[QrsSignal::Qrs];
    if (sinceLast < TWaveEnd)
        tWaveLevel_ += TWavePace * (height - tWaveLevel_);
    else
        restLevel_ += RestPace * (height - restLevel_);
}

void QrsLevels::ReplaceBeat(const QrsCandidate& beat) {
    if (beatCount_ > 0)
        --beatCount_;
    beats_[beatCount_++ % Kept] = beat.Found;
}

} // namespace pulselark
