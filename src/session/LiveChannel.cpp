#include "session/LiveChannel.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace pulselark {

LiveChannel LiveChannelA(EcgA, IbiA, WriteIndexA, SignalQualityA, SignalLightA, Diagnostics.A);
LiveChannel LiveChannelB(EcgB, IbiB, WriteIndexB, SignalQualityB, SignalLightB, Diagnostics.B);

namespace {

constexpr float Lost = std::numeric_limits<float>::quiet_NaN();
// A shorter loss keeps the line where it was; a longer one is a gap, and gaps lie at 0.
constexpr int LongestBridge = SamplesPerSecond / 8;
// In samples. A monitor whose clock wanders less is taken at its word.
constexpr double LeastCorrection = 1;
// What is wrong is made good in so many seconds, but no interval gets longer or shorter than by a fiftieth.
constexpr double CorrectionTime = 5;
constexpr double FastestCorrection = SamplesPerSecond / 50.0; // samples a second
// Beats of the first two seconds come all at once.
constexpr double LearningSeconds = 2;

} // namespace

LiveChannel::LiveChannel(EcgBuffer& ecg, SecondsBuffer& ibi, Long& writeIndex, float& quality, Integer& light,
                         ChannelFigures& figures)
    : ecg_(ecg), ibi_(ibi), writeIndex_(writeIndex), quality_(quality), light_(light), figures_(figures) {}

void LiveChannel::Restart() {
    resampler_.reset();
    detector_ = {};
    intervals_ = {};
    signal_ = {};
    newBeat_.reset();
    lostOfSecond_.fill(0);
    analysed_ = base_ = writeIndex_;
    held_ = 0;
    lostRun_ = 0;
    clock_ = {};
    corrected_ = false;
}

void LiveChannel::Disconnect() {
    if (!resampler_)
        return;
    resampler_->Flush(ready_);
    for (const float sample : ready_)
        Put(sample);
    ready_.clear();
    resampler_.reset();
}

void LiveChannel::FillGap(Long end) {
    Disconnect();
    FillWithLost(end);
}

void LiveChannel::Connect(double rate, double first) {
    Disconnect();
    rate_ = figures_.NominalRate = rate;
    raw_ = 0;
    first_ = first;
    // Samples that come as they are wanted are passed on as they are.
    const bool asTheyAre = rate == Resampler::OutputRate && !corrected_;
    const double whole = asTheyAre ? std::round(first) : std::ceil(first - 1e-6);
    firstWritten_ = std::max(writeIndex_, static_cast<Long>(whole));
    FillWithLost(firstWritten_);
    const double untilFirst = asTheyAre ? 0 : std::max(0.0, firstWritten_ - first);
    resampler_.emplace(rate, untilFirst * rate / Resampler::OutputRate, Resampler::Prompt);
    clock_.Connect();
}

void LiveChannel::Take(std::span<const float> raw) {
    raw_ += static_cast<double>(raw.size());
    for (const float sample : raw)
        resampler_->Push(sample, ready_);
    for (const float sample : ready_)
        Put(sample);
    ready_.clear();
}

void LiveChannel::FillWithLost(Long end) {
    while (writeIndex_ < std::min<Long>(end, EcgBufferSize))
        Put(Lost);
}

void LiveChannel::FillWithZeros(Long end) {
    while (writeIndex_ < std::min<Long>(end, EcgBufferSize))
        Put(0);
}

// Over a pause the write index moves on by itself; for the search for beats that is a loss.
void LiveChannel::CatchUpWithWriteIndex() {
    while (analysed_ < writeIndex_)
        Analyse(Lost);
}

void LiveChannel::Put(float sample) {
    CatchUpWithWriteIndex();
    if (writeIndex_ >= EcgBufferSize)
        return;
    if (std::isnan(sample)) {
        ++lostRun_;
        ++figures_.LostSamples;
    } else {
        held_ = sample;
        lostRun_ = 0;
    }
    ++writeIndex_;
    ecg_[writeIndex_] = lostRun_ <= LongestBridge ? held_ : 0.0F;
    Analyse(sample);
}

void LiveChannel::Analyse(float sample) {
    const Long second = analysed_ / SamplesPerSecond + 1;
    ++analysed_;
    if (std::isnan(sample))
        ++lostOfSecond_.at(static_cast<std::size_t>(second));
    if (const auto beat = detector_.Push(sample)) {
        intervals_.Add(*beat);
        while (intervals_.Next())
            continue; // the kinds of beats are for others to show
        newBeat_ = LampBeat{beat->Time + static_cast<double>(base_) / SamplesPerSecond,
                            !beat->Doubtful && beat->Time > LearningSeconds};
    }
    if (signal_.Push(sample)) {
        quality_ = signal_.Figure();
        light_ = static_cast<Integer>(signal_.Light());
    }
}

void LiveChannel::KeepTime(Long now, double byClock) {
    figures_.LagMs = (byClock - writeIndex_) * 1000 / SamplesPerSecond;
    if (raw_ == 0)
        return;
    const double counted = first_ + (raw_ - 1) * SamplesPerSecond / rate_;
    clock_.Compare(now, byClock - counted);
    if (const Long loss = clock_.TakeLoss(); loss > 0) {
        FillWithLost(writeIndex_ + loss);
        first_ += loss;
        firstWritten_ += loss;
    }
    const double put = firstWritten_ + resampler_->Reached() - counted;
    CorrectRate(clock_.Missing(now) - put);
    figures_.Corrected = put;
    figures_.ClockDrift = corrected_ ? -clock_.Drift() / SamplesPerSecond : 0;
}

void LiveChannel::CorrectRate(double missing) {
    corrected_ = corrected_ || std::abs(missing) >= LeastCorrection;
    if (!corrected_)
        return;
    const double pace = std::clamp(missing / CorrectionTime, -FastestCorrection, FastestCorrection);
    const double trueRate = rate_ * (1 - clock_.Drift() / SamplesPerSecond);
    resampler_->CorrectRate(trueRate * SamplesPerSecond / (SamplesPerSecond + pace));
}

void LiveChannel::StoreIntervals(Long second) {
    CatchUpWithWriteIndex();
    const Long first = base_ / SamplesPerSecond + 1;
    for (Long s = std::max(first, second - IntervalSeries::SettledAfter); s <= second; ++s) {
        const int ofSearch = static_cast<int>(s - first + 1);
        ibi_.at(s) = SecondLost(s) ? 1.0F : intervals_.MeanInterval(ofSearch);
    }
}

std::optional<LiveChannel::LampBeat> LiveChannel::NewBeat() {
    const auto beat = newBeat_;
    newBeat_.reset();
    return beat;
}

bool LiveChannel::SecondLost(Long second) const {
    return lostOfSecond_.at(static_cast<std::size_t>(second)) > SamplesPerSecond / 2;
}

} // namespace pulselark
