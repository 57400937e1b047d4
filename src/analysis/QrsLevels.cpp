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

// Logistic regression, see the header; heights are natural logarithms.
constexpr double Constant = 2.632;
constexpr double PerBeatLevel = 3.0, PerBeatLevelSquared = 0.303;
constexpr double PerRestLevel = 1.84, PerTWaveLevel = 1.581;
constexpr double PerBandAbove = 2.263;
constexpr double PerLikeness = -6.626, PerLikenessSquared = 9.192;
constexpr double PerOtherLikeness = -1.021, PerOtherLikenessMean = -1.649;
constexpr double PerInterval = 2.8, PerIntervalSquared = -0.181;
constexpr double InTWave = -1.793, VeryEarly = -3.119;
constexpr double PerAhead = -0.718;

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
    std::vector<float> heights;
    heights.reserve(candidates.size());
    for (const QrsCandidate& candidate : candidates)
        heights.push_back(candidate.Height[QrsSignal::Qrs]);
    std::sort(heights.rbegin(), heights.rend());
    const float top = heights[heights.size() > 2 ? 1 : 0];
    heights_.Add(top);
    for (const QrsCandidate& candidate : candidates)
        (candidate.Height[QrsSignal::Qrs] > top - 0.6F ? beats_ : others_).Add(candidate.Found);
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

QrsLevels::Likeness QrsLevels::LikenessTo(const Shapes& shapes, const Beat& beat) {
    Likeness likeness;
    const std::size_t size = std::min(shapes.Count, Kept);
    for (std::size_t i = 0; i < size; ++i) {
        if (shapes.Values[i].Time == beat.Time)
            continue; // itself, after learning
        const double correlation = Correlation(beat, shapes.Values[i]);
        likeness.Best = std::max(likeness.Best, correlation);
        likeness.Mean += correlation / static_cast<double>(size);
    }
    return likeness;
}

double QrsLevels::Score(const QrsCandidate& candidate, double sinceLast) const {
    const double height = candidate.Height[QrsSignal::Qrs];
    const double overBeats = std::clamp(height - heights_.Median(), -4.0, 2.0);
    const double overRest = std::clamp(height - restLevel_, -2.0, 5.0);
    const double above = static_cast<double>(candidate.Height[QrsSignal::Above]) - height;
    const double like = LikenessTo(beats_, candidate.Found).Best;
    const Likeness unlike = LikenessTo(others_, candidate.Found);
    const double interval = std::log(std::clamp(sinceLast / UsualInterval(), 0.2, 2.0));
    double score = Constant + PerBeatLevel * overBeats + PerBeatLevelSquared * overBeats * overBeats +
                   PerRestLevel * overRest + PerBandAbove * above + PerLikeness * like +
                   PerLikenessSquared * like * like + PerOtherLikeness * unlike.Best +
                   PerOtherLikenessMean * unlike.Mean + PerInterval * interval +
                   PerIntervalSquared * interval * interval +
                   PerAhead * std::clamp<double>(candidate.Ahead, -4, 0.5);
    if (sinceLast < TWaveEnd)
        score += InTWave + PerTWaveLevel * std::clamp(height - tWaveLevel_, -2.0, 4.0);
    if (sinceLast < 0.3 * Rate)
        score += VeryEarly;
    return score;
}

void QrsLevels::AddBeat(const QrsCandidate& candidate, double interval) {
    if (interval > 0)
        intervals_.Add(static_cast<float>(interval));
    heights_.Add(candidate.Height[QrsSignal::Qrs]);
    beats_.Add(candidate.Found);
}

void QrsLevels::AddOther(const QrsCandidate& candidate, double sinceLast) {
    const double height = candidate.Height[QrsSignal::Qrs];
    if (sinceLast < TWaveEnd)
        tWaveLevel_ += TWavePace * (height - tWaveLevel_);
    else
        restLevel_ += RestPace * (height - restLevel_);
    others_.Add(candidate.Found);
}

void QrsLevels::ReplaceBeat(const QrsCandidate& wave, const QrsCandidate& beat) {
    if (beats_.Count > 0)
        --beats_.Count;
    beats_.Add(beat.Found);
    others_.Add(wave.Found);
}

} // namespace pulselark
