#include "analysis/Resampler.h"

#include "base/Numbers.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace pulselark {

namespace {

constexpr double CutOff = 0.9;    // of the lower of the two Nyquist rates
constexpr double KaiserShape = 6; // about 63 dB in the stop band
constexpr float Lost = std::numeric_limits<float>::quiet_NaN();

// Modified Bessel function of order 0, by its power series.
double BesselI0(double x) {
    double sum = 1, term = 1;
    for (int k = 1; term > 1e-12 * sum; ++k) {
        term *= (x / (2 * k)) * (x / (2 * k));
        sum += term;
    }
    return sum;
}

// The low-pass at `distance` inputs from its centre; `bandwidth` 1 is the input's Nyquist rate, `reach` the
// distance where the window ends.
double LowPass(double distance, double bandwidth, double reach) {
    const double edge = distance / reach;
    if (std::abs(edge) >= 1)
        return 0;
    const double x = std::numbers::pi * distance * bandwidth;
    const double sinc = std::abs(x) < 1e-9 ? 1 : std::sin(x) / x;
    return sinc * BesselI0(KaiserShape * std::sqrt(1 - edge * edge));
}

} // namespace

Resampler::Resampler(double rate, double first, Filter filter) : step_(rate / OutputRate) {
    if (!CanTake(rate))
        throw Failure{FailureOverflow};
    half_ = static_cast<int>(std::ceil(int{filter} * std::max(1.0, step_)));
    MakeTable();
    samples_.resize(2 * static_cast<std::size_t>(half_) + 2);
    lost_.resize(samples_.size());
    MoveOn(first);
}

void Resampler::MakeTable() {
    // At 128 a second there is nothing to be taken out, and an output on an input is that input.
    const double bandwidth = step_ == 1 ? 1 : CutOff * std::min(1.0, 1 / step_);
    const auto width = 2 * static_cast<std::size_t>(half_);
    table_.resize((Phases + 1) * width);
    std::vector<double> weights(width);
    for (int phase = 0; phase <= Phases; ++phase) {
        double sum = 0;
        for (std::size_t tap = 0; tap < width; ++tap) {
            const double distance = static_cast<double>(tap) - (half_ - 1) - phase / double{Phases};
            weights[tap] = LowPass(distance, bandwidth, half_);
            sum += weights[tap];
        }
        for (std::size_t tap = 0; tap < width; ++tap) // a constant comes out as itself
            table_[static_cast<std::size_t>(phase) * width + tap] = static_cast<float>(weights[tap] / sum);
    }
}

// The next output lies so many inputs further on.
void Resampler::MoveOn(double inputs) {
    fraction_ += inputs;
    const double whole = std::floor(fraction_);
    whole_ += static_cast<std::int64_t>(whole);
    fraction_ -= whole;
}

double Resampler::Delay() const {
    return PassesThrough() ? 0 : half_ / (step_ * OutputRate);
}

double Resampler::Reached() const {
    return static_cast<double>(outputs_) + Beyond() / step_;
}

double Resampler::Beyond() const {
    return static_cast<double>(inputs_ - 1 - whole_) - fraction_;
}

void Resampler::Push(float sample, std::vector<float>& out) {
    const bool lost = std::isnan(sample);
    if (!lost)
        last_ = sample;
    if (inputs_ == 0) // the time before the first input
        std::fill(samples_.begin(), samples_.end(), last_);
    Take(last_, lost);
    GiveCompleteOutputs(out);
}

void Resampler::Take(float sample, bool lost) {
    const auto place = static_cast<std::size_t>(inputs_) % samples_.size();
    samples_[place] = sample;
    lost_[place] = lost ? 1 : 0;
    ++inputs_;
}

void Resampler::GiveCompleteOutputs(std::vector<float>& out) {
    while (whole_ + (PassesThrough() ? 0 : half_) < inputs_) {
        out.push_back(NextOutput());
        ++outputs_;
        MoveOn(step_);
    }
}

float Resampler::NextOutput() const {
    const auto size = static_cast<std::int64_t>(samples_.size());
    const auto ring = [size](std::int64_t index) { return static_cast<std::size_t>((index + size) % size); };
    if (lost_[ring(whole_)] != 0 || (fraction_ > 0 && lost_[ring(whole_ + 1)] != 0))
        return Lost;
    if (PassesThrough())
        return samples_[ring(whole_)];
    const auto width = 2 * static_cast<std::size_t>(half_);
    const double phase = fraction_ * Phases;
    const auto row = static_cast<std::size_t>(phase);
    const double toNext = phase - static_cast<double>(row);
    const float* near = &table_[row * width];
    const float* far = near + (toNext > 0 ? width : 0);
    double sum = 0;
    std::size_t place = ring(whole_ - half_ + 1);
    for (std::size_t tap = 0; tap < width; ++tap) {
        sum += (near[tap] + toNext * (far[tap] - near[tap])) * samples_[place];
        if (++place == samples_.size())
            place = 0;
    }
    return static_cast<float>(sum);
}

void Resampler::Flush(std::vector<float>& out) {
    if (inputs_ == 0)
        return;
    const auto wanted = static_cast<std::int64_t>(std::floor(Beyond() / step_ + 1e-9)) + 1;
    std::vector<float> rest;
    for (int i = 0; i <= half_; ++i) {
        Take(last_, false);
        GiveCompleteOutputs(rest);
    }
    rest.resize(std::min(rest.size(), static_cast<std::size_t>(std::max<std::int64_t>(wanted, 0))));
    out.insert(out.end(), rest.begin(), rest.end());
}

} // namespace pulselark
