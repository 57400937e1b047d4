#include "analysis/CoherenceBins.h"

#include "session/AnalysisBuffers.h"

#include <algorithm>
#include <cmath>
namespace pulselark {
void BinCoherence(const SecondsBuffer& series, Integer& interval, Long upTo) {
    if (upTo <= interval + 14)
        return;
    CoherenceBins.Fill(0);
    if (interval == 61)
        interval = static_cast<Integer>(upTo - 15);
    for (Long i = upTo - interval; i <= upTo; ++i) {
        const auto b = std::min<std::int64_t>(Round(series.at(i) / 0.11 * 10), 10);
        if (b >= 1)
            ++CoherenceBins[static_cast<int>(b)];
    }
}
Integer ScoreCoherenceBins() {
    const int m = *std::max_element(CoherenceBins.begin(), CoherenceBins.end());
    double sg = 0, sn = 0, ex = 0;
    for (int i = 1; i <= 10; ++i) {
        const double x = 60 * (i / 10.0 - 0.5) / 10;
        const double g = std::exp(-(x * x) / 2) / std::sqrt(6.2831853) / 0.4;
        const double n = m > 0 ? static_cast<double>(CoherenceBins[i]) / m : 0;
        sg += g;
        sn += n;
        if (n > g)
            ex += n - g;
    }
    return static_cast<Integer>(std::clamp<std::int64_t>(Round((sn - 2 * ex) * 111.6 / sg), 0, 100));
}
} // namespace pulselark
