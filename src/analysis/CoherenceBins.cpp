#include "analysis/CoherenceBins.h"

#include "session/AnalysisBuffers.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace pulselark {

double QsCoherencePercent = 0;
Integer ScanPeakA = 0;
Integer ScanPeakB = 0;

namespace {

constexpr Integer SettlingSeconds = 14;
constexpr Integer WholeSession = 61; // a window of this length
constexpr int Bins = 10;

Integer ToInteger(double value) {
    return static_cast<Integer>(std::clamp<double>(std::nearbyint(value), std::numeric_limits<Integer>::min(),
                                                   std::numeric_limits<Integer>::max()));
}

} // namespace

void BinCoherence(const SecondsBuffer& series, Integer& window, Long endSecond) {
    if (endSecond <= window + SettlingSeconds)
        return;
    CoherenceBins.Fill(0);
    if (window == WholeSession)
        window = static_cast<Integer>(endSecond - (SettlingSeconds + 1));
    double sum = 0;
    Long count = 0;
    for (Long i = endSecond - window; i <= endSecond; ++i) {
        const double value = series.at(i);
        sum += value;
        const auto bin = static_cast<int>(std::min<std::int64_t>(Round(value / FullCoherence * Bins), Bins));
        if (bin >= 1) {
            ++CoherenceBins[bin];
            ++count;
        }
    }
    QsCoherencePercent = count > 0 ? sum / count / FullCoherence * 100 : sum;
    (QuickScanFresh != Off ? CohScoreBinsA : CohScoreBinsB) = CoherenceBins;
    (QuickScanFresh != Off ? ScanPeakA : ScanPeakB) = ToInteger(QsCoherencePercent);
}

double BellCurve(double x) {
    constexpr double FullTurn = 6.2831853;
    return std::exp(-(x / 10) * (x / 10) / 2) / std::sqrt(FullTurn) / 0.4;
}

Integer ScoreCoherenceBins() {
    // One step above the double nearest to 111.6: ties of the rounding below depend on it.
    constexpr double FullScore = 0x1.be66666666667p+6;
    const Integer largest = *std::max_element(CoherenceBins.begin(), CoherenceBins.end());
    double bell = 0;
    double bins = 0;
    double above = 0;
    for (int i = 1; i <= Bins; ++i) {
        const double curve = BellCurve(60 * (i / 10.0 - 0.5));
        const double bin = largest > 0 ? static_cast<double>(CoherenceBins[i]) / largest : 0;
        bell += curve;
        bins += bin;
        if (bin > curve)
            above += bin - curve;
    }
    return static_cast<Integer>(
        std::clamp<std::int64_t>(Round((bins - 2 * above) * FullScore / bell), 0, 100));
}

void ResetCoherenceBins() {
    QsCoherencePercent = SessionScore = DynamicIndex = 0;
    ScanPeakA = ScanPeakB = 0;
}

} // namespace pulselark
