#include "analysis/BeatDetector.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace pulselark {

namespace {

constexpr double Rate = 128;
constexpr double CentreFrequency = 11; // Hz, of the QRS band
constexpr double Spread = 0.030;       // s, of the Gaussian that weighs the filter
constexpr int PeakReach = 9;           // samples that a peak of the envelope tops on each side
constexpr int MarkReach = 9;           // samples from the envelope's peak to the QRS peak at most
constexpr int Wait = 37;               // samples from the QRS peak to the decision
constexpr int RivalReach = 22;         // samples within which only the higher peak counts
constexpr double Refractory = 0.2 * Rate;
constexpr double TWaveEnd = 0.36 * Rate;
constexpr int LearningSamples = 2 * 128 + 64;

} // namespace

void BeatDetector::Recent::Add(float value) {
    Values[Count % LevelBeats] = value;
    ++Count;
}

float BeatDetector::Recent::Median() const {
    const std::size_t size = std::min(Count, LevelBeats);
    if (size == 0)
        return 0;
    auto sorted = Values;
    std::sort(sorted.begin(), sorted.begin() + static_cast<std::ptrdiff_t>(size));
    return (sorted[(size - 1) / 2] + sorted[size / 2]) / 2;
}

BeatDetector::BeatDetector() {
    double dcCosine = 0, sumGauss = 0;
    std::array<double, 2 * Reach + 1> gauss{};
    for (int k = -Reach; k <= Reach; ++k) {
        const double t = k / Rate;
        const auto i = static_cast<std::size_t>(k + Reach);
        gauss[i] = std::exp(-t * t / (2 * Spread * Spread));
        sumGauss += gauss[i];
        dcCosine += gauss[i] * std::cos(2 * std::numbers::pi * CentreFrequency * t);
    }
    for (int k = -Reach; k <= Reach; ++k) {
        const double phase = 2 * std::numbers::pi * CentreFrequency * k / Rate;
        const auto i = static_cast<std::size_t>(k + Reach);
        cosine_[i] = static_cast<float>(gauss[i] * (std::cos(phase) - dcCosine / sumGauss) * 2 / sumGauss);
        sine_[i] = static_cast<float>(gauss[i] * std::sin(phase) * 2 / sumGauss);
    }
}

float& BeatDetector::At(Ring& ring, std::int64_t index) {
    return ring[static_cast<std::size_t>(index & (RingSize - 1))];
}

float BeatDetector::Sample(std::int64_t index) const {
    return samples_[static_cast<std::size_t>(index & (RingSize - 1))];
}

float BeatDetector::Envelope(std::int64_t index) const {
    return envelope_[static_cast<std::size_t>(index & (RingSize - 1))];
}

void BeatDetector::TakeSample(float sample) {
    if (count_ == 0) {
        held_ = std::isnan(sample) ? 0 : sample;
        samples_.fill(held_);
    }
    if (std::isnan(sample))
        gapEnd_ = count_;
    else
        held_ = sample;
    At(samples_, count_) = held_;
    ++count_;
    At(envelope_, count_ - 1 - Reach) = EnvelopeAt(count_ - 1 - Reach);
}

float BeatDetector::EnvelopeAt(std::int64_t centre) const {
    float re = 0, im = 0;
    for (int k = -Reach; k <= Reach; ++k) {
        const float x = Sample(centre + k);
        re += cosine_[static_cast<std::size_t>(k + Reach)] * x;
        im += sine_[static_cast<std::size_t>(k + Reach)] * x;
    }
    return std::sqrt(re * re + im * im);
}

void BeatDetector::FindCandidate() {
    const std::int64_t place = count_ - 1 - Reach - PeakReach;
    if (place < 0)
        return;
    const float height = Envelope(place);
    for (int k = 1; k <= PeakReach; ++k)
        if (Envelope(place - k) > height || Envelope(place + k) >= height)
            return;
    Candidate candidate;
    candidate.Place = place;
    candidate.Height = height;
    PlaceMark(candidate);
    pending_.push_back(candidate);
}

void BeatDetector::PlaceMark(Candidate& candidate) const {
    const std::int64_t place = candidate.Place;
    // Baseline: mean over a window around.
    double base = 0;
    for (int k = -20; k <= 20; ++k)
        base += Sample(place + k);
    base /= 41;
    std::int64_t best = place;
    double bestValue = -1;
    for (std::int64_t k = place - MarkReach; k <= place + MarkReach; ++k) {
        const double value = std::abs(Sample(k) - base);
        if (value > bestValue) {
            bestValue = value;
            best = k;
        }
        candidate.Slope = std::max(candidate.Slope, std::abs(Sample(k + 1) - Sample(k - 1)) / 2);
    }
    const double left = Sample(best - 1), mid = Sample(best), right = Sample(best + 1);
    const double bend = left - 2 * mid + right;
    const double shift = std::abs(bend) > 1e-6 ? std::clamp((left - right) / (2 * bend), -0.5, 0.5) : 0;
    candidate.Mark = static_cast<double>(best) + shift;
    candidate.Found.Amplitude = static_cast<float>(mid - base);
}

void BeatDetector::Describe(Candidate& candidate) const {
    const auto mark = static_cast<std::int64_t>(std::llrint(candidate.Mark));
    candidate.Found.Time = candidate.Mark / Rate;
    for (int k = 0; k < Beat::ShapeSize; ++k)
        candidate.Found.Shape[static_cast<std::size_t>(k)] = Sample(mark - Beat::ShapePeak + k);
}

std::optional<Beat> BeatDetector::Push(float sample) {
    TakeSample(sample);
    FindCandidate();
    if (learning_) {
        if (count_ >= LearningSamples)
            Learn();
        return NextFound();
    }
    while (!pending_.empty() && pending_.front().Mark + Wait <= static_cast<double>(count_ - 1)) {
        const Candidate candidate = pending_.front();
        pending_.pop_front();
        Decide(candidate);
    }
    return NextFound();
}

void BeatDetector::Learn() {
    learning_ = false;
    std::vector<float> heights;
    for (const Candidate& candidate : pending_)
        heights.push_back(candidate.Height);
    std::sort(heights.begin(), heights.end());
    const float top = heights.empty() ? 0 : heights.size() > 2 ? heights[heights.size() - 2] : heights.back();
    heights_.Add(top);
    noise_ = top / 8;
}

bool BeatDetector::Dominated(const Candidate& candidate) const {
    const std::int64_t end = std::min<std::int64_t>(candidate.Place + RivalReach, count_ - 1 - Reach);
    for (std::int64_t k = std::max<std::int64_t>(0, candidate.Place - RivalReach); k <= end; ++k)
        if (Envelope(k) > candidate.Height)
            return true;
    return false;
}

float BeatDetector::Threshold(double sinceLast) const {
    const float signal = heights_.Median();
    const double usual = intervals_.Count > 0 ? intervals_.Median() : Rate;
    const double progress = sinceLast / usual;
    const double share = std::clamp(0.5 - 0.25 * (progress - 0.5), 0.25, 0.5);
    return noise_ + static_cast<float>(share) * std::max(0.0F, signal - noise_);
}

void BeatDetector::Decide(Candidate candidate) {
    Describe(candidate);
    const double sinceLast = candidate.Mark - lastMark_;
    if (sinceLast < Refractory || Dominated(candidate))
        return;
    const bool tWave = sinceLast < TWaveEnd && candidate.Slope < 0.5F * lastSlope_;
    if (!tWave && candidate.Height > Threshold(sinceLast)) {
        Accept(candidate, false);
        return;
    }
    if (!tWave)
        noise_ += 0.125F * (candidate.Height - noise_);
    rejected_.push_back(candidate);
    SearchBack();
}

void BeatDetector::Accept(const Candidate& candidate, bool searchedBack) {
    const double interval = candidate.Mark - lastMark_;
    if (interval < 3 * Rate)
        intervals_.Add(static_cast<float>(interval));
    heights_.Add(candidate.Height);
    lastMark_ = candidate.Mark;
    lastSlope_ = candidate.Slope;
    found_.push_back(candidate.Found);
    found_.back().Doubtful = searchedBack || candidate.BesideGap;
    rejected_.clear();
}

void BeatDetector::SearchBack() {
    const double usual = intervals_.Count > 0 ? intervals_.Median() : Rate;
    if (static_cast<double>(count_ - 1) - lastMark_ < 1.66 * usual)
        return;
    const float half = 0.5F * Threshold(usual);
    const Candidate* best = nullptr;
    for (const Candidate& candidate : rejected_)
        if (candidate.Mark - lastMark_ > TWaveEnd && candidate.Height > half &&
            (best == nullptr || candidate.Height > best->Height))
            best = &candidate;
    if (best != nullptr) {
        const Candidate chosen = *best;
        Accept(chosen, true);
    }
}

std::optional<Beat> BeatDetector::NextFound() {
    if (found_.empty())
        return std::nullopt;
    const Beat beat = found_.front();
    found_.pop_front();
    return beat;
}

std::optional<Beat> BeatDetector::Flush() {
    while (flushed_ < 2 * Wait) {
        ++flushed_;
        if (const auto beat = Push(held_))
            return beat;
    }
    return NextFound();
}

} // namespace pulselark
