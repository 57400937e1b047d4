#include "analysis/QrsSignal.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace pulselark {

namespace {

constexpr double Rate = 128;
constexpr std::array<double, QrsSignal::Bands> Centre{11, 5, 22};           // Hz
constexpr std::array<double, QrsSignal::Bands> Spread{0.030, 0.045, 0.020}; // s, of the Gaussian
constexpr int ShortestLoss = 3, ShortestZero = 20, ShortestFlat = 96;       // samples that are a gap
constexpr float LeastStep = 50; // panel units, to a 0 that is no part of the signal
constexpr int OneGap = 38;      // samples between two gaps that count as one

// Place of the tap `k` samples from a filter's middle.
std::size_t TapOf(int k) {
    const int place = k + QrsSignal::Reach;
    return static_cast<std::size_t>(place);
}

} // namespace

QrsSignal::QrsSignal() {
    for (std::size_t band = 0; band < Bands; ++band) {
        std::array<double, 2 * Reach + 1> weight{};
        double sum = 0, constant = 0;
        const auto phase = [band](int k) { return 2 * std::numbers::pi * Centre[band] * k / Rate; };
        for (int k = -Reach; k <= Reach; ++k) {
            const double t = k / Rate / Spread[band];
            double& w = weight[TapOf(k)];
            w = std::exp(-t * t / 2);
            sum += w;
            constant += w * std::cos(phase(k));
        }
        for (int k = -Reach; k <= Reach; ++k) {
            const auto i = TapOf(k);
            const double w = 2 * weight[i] / sum;
            filters_[band].Cosine[i] = static_cast<float>(w * (std::cos(phase(k)) - constant / sum));
            filters_[band].Sine[i] = static_cast<float>(w * std::sin(phase(k)));
        }
    }
}

void QrsSignal::Push(float sample) {
    if (count_ == 0) {
        held_ = before_ = std::isfinite(sample) ? sample : 0;
        samples_.fill(held_);
    }
    WatchGaps(sample);
    if (std::isfinite(sample)) {
        held_ = sample + offset_;
        before_ = sample;
    }
    samples_[Place(count_)] = held_;
    ++count_;
    const std::int64_t centre = count_ - 1 - Reach;
    for (std::size_t band = 0; band < Bands; ++band)
        envelopes_[band][Place(centre)] = EnvelopeAt(filters_[band], centre);
}

void QrsSignal::WatchGaps(float sample) {
    const bool lost = !std::isfinite(sample);
    const bool afterGap = count_ > 0 && gapEnd_ == count_ - 1;
    if (!lost && afterGap && (lostRun_ > 0 || sample != before_))
        offset_ = held_ - sample;
    if (sample == 0 && before_ != 0)
        brokenOff_ = std::abs(before_) > LeastStep;
    equalRun_ = !lost && sample == before_ ? equalRun_ + 1 : 0;
    lostRun_ = lost ? lostRun_ + 1 : 0;
    if (lostRun_ < ShortestLoss && equalRun_ < (sample == 0 && brokenOff_ ? ShortestZero : ShortestFlat))
        return;
    const std::int64_t start = count_ - std::max(lostRun_, equalRun_);
    if (start > gapEnd_ + OneGap)
        gapStart_ = start;
    gapEnd_ = count_;
}

float QrsSignal::EnvelopeAt(const Filter& filter, std::int64_t centre) const {
    float cosine = 0, sine = 0;
    for (int k = -Reach; k <= Reach; ++k) {
        const float x = Sample(centre + k);
        cosine += filter.Cosine[TapOf(k)] * x;
        sine += filter.Sine[TapOf(k)] * x;
    }
    return std::sqrt(cosine * cosine + sine * sine);
}

bool QrsSignal::BesideGap(double index, double reach) const {
    return index + reach >= static_cast<double>(gapStart_) && index - reach <= static_cast<double>(gapEnd_);
}

} // namespace pulselark
