#include "analysis/SignalQuality.h"

#include <algorithm>
#include <cmath>

namespace pulselark {

namespace {

// From 1 at `best` to 0 at `worst`.
double Falling(double value, double best, double worst) {
    return std::clamp((worst - value) / (worst - best), 0.0, 1.0);
}

} // namespace

bool SignalQuality::Push(float sample) {
    second_[static_cast<std::size_t>(count_)] = sample;
    if (++count_ < SecondSize)
        return false;
    count_ = 0;
    figure_ = FigureOfSecond();
    return true;
}

SignalQuality::Step SignalQuality::Light() const {
    if (figure_ < BadBelow)
        return Step::Bad;
    return figure_ < DoubtfulBelow ? Step::Doubtful : Step::Good;
}

float SignalQuality::FigureOfSecond() const {
    std::array<float, SecondSize> known{};
    std::size_t count = 0;
    for (const float sample : second_)
        if (!std::isnan(sample))
            known[count++] = sample;
    if (count < SecondSize / 2)
        return 0;
    const auto [lowest, highest] = std::minmax_element(known.begin(), known.begin() + count);
    constexpr float Flat = 10; // panel units: 10 microvolts from peak to peak
    if (*highest - *lowest < Flat)
        return 0;

    // Samples equal to their neighbour at one of the two limits.
    int atLimit = 0;
    for (std::size_t i = 1; i < count; ++i)
        if (known[i] == known[i - 1] && (known[i] == *lowest || known[i] == *highest))
            ++atLimit;

    double coarse = 0, fine = 0;
    for (std::size_t i = 4; i < count; ++i) {
        const double slope = (known[i] + known[i - 1] - known[i - 3] - known[i - 4]) / 2;
        const double bend = known[i] - 2 * known[i - 1] + known[i - 2];
        coarse += slope * slope;
        fine += bend * bend;
    }
    const double noise = coarse > 0 ? fine / coarse : 1;

    const double lost = 1 - static_cast<double>(count) / SecondSize;
    return static_cast<float>(Falling(lost, 0, 0.5) * Falling(atLimit, 4, 32) * Falling(noise, 0.4, 2.5));
}

} // namespace pulselark
