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
// Over so many milliseconds the least lag is the way of the samples without the waiting for a packet.
constexpr Long TimeWindow = 10000;
// Until the resampler is full, and the first packets of any size are through.
constexpr Long SettlingTime = 2000;
// Less is the clock's own grain.
constexpr double LeastCorrection = 1.5;
// More in one window is no clock that goes wrong, but a loss.
constexpr Long LongestCorrection = SamplesPerSecond / 2;
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
    windowOpen_ = false;
    usualLag_.reset();
    corrected_ = toCorrect_ = 0;
}

void LiveChannel::Connect(double rate) {
    if (resampler_) {
        resampler_->Flush(ready_);
        for (const float sample : ready_)
            Put(sample);
        ready_.clear();
    }
    resampler_.emplace(rate);
    connectedAt_.reset();
    figures_.NominalRate = rate;
    windowOpen_ = false;
    corrected_ = toCorrect_ = 0;
}

void LiveChannel::Take(std::span<const float> raw) {
    for (const float sample : raw)
        resampler_->Push(sample, ready_);
    for (const float sample : ready_)
        PutInTime(sample);
    ready_.clear();
}

// One sample, or none, or two, as the clock wants it.
void LiveChannel::PutInTime(float sample) {
    const bool due = toCorrect_ != 0 && ++sinceCorrection_ >= spacing_;
    if (!due || toCorrect_ > 0)
        Put(sample);
    if (!due)
        return;
    const Long step = toCorrect_ > 0 ? 1 : -1;
    if (step > 0)
        Put(sample);
    toCorrect_ -= step;
    corrected_ += step;
    sinceCorrection_ = 0;
    ++figures_.Corrections;
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
    const double lag = byClock - writeIndex_;
    figures_.LagMs = lag * 1000 / SamplesPerSecond;
    if (!connectedAt_)
        connectedAt_ = now;
    if (now - *connectedAt_ < SettlingTime)
        return;
    const double uncorrected = lag + corrected_;
    if (!windowOpen_) {
        windowOpen_ = true;
        windowStart_ = now;
        leastLag_ = uncorrected;
    }
    leastLag_ = std::min(leastLag_, uncorrected);
    if (now - windowStart_ >= TimeWindow)
        CloseTimeWindow();
}

void LiveChannel::CloseTimeWindow() {
    windowOpen_ = false;
    if (!usualLag_) {
        usualLag_ = leastLag_;
        return;
    }
    const double wrong = leastLag_ - *usualLag_ - corrected_;
    if (std::abs(wrong) < LeastCorrection)
        return;
    toCorrect_ = static_cast<Long>(Round(wrong));
    if (toCorrect_ > LongestCorrection) { // lost on the way, without a word from the monitor
        corrected_ += toCorrect_;
        FillWithLost(writeIndex_ + toCorrect_);
        toCorrect_ = 0;
        return;
    }
    constexpr Long SamplesOfAWindow = TimeWindow / 1000 * SamplesPerSecond;
    spacing_ = std::max<Long>(1, SamplesOfAWindow / 2 / std::abs(toCorrect_));
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
