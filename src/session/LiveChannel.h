#pragma once

#include "analysis/BeatDetector.h"
#include "analysis/IntervalSeries.h"
#include "analysis/Resampler.h"
#include "analysis/SignalQuality.h"
#include "session/Diagnostics.h"
#include "session/MainBuffers.h"

#include <array>
#include <optional>
#include <span>
#include <vector>

/// The way of one channel's samples in a recording: from the monitor's rate to 128 a second, into the buffer
/// at the write index, and through the search for beats into the interval series.
namespace pulselark {

class LiveChannel {
public:
    LiveChannel(EcgBuffer& ecg, SecondsBuffer& ibi, Long& writeIndex, float& quality, Integer& light,
                ChannelFigures& figures);

    /// Begins anew at the write index, which is that of a whole second: an empty session, or one that was
    /// read back.
    void Restart();

    /// From now on the monitor gives `rate` samples a second. What it gave before is finished. The next
    /// samples follow the ones written last.
    void Connect(double rate);

    /// Takes raw samples, NaN for a lost one. At the end of the buffer the rest is dropped.
    void Take(std::span<const float> raw);

    /// Writes lost samples up to `end` samples in all, if there are not so many yet.
    void FillWithLost(Long end);

    /// Writes samples of 0 up to `end` samples in all: there is no monitor to ask.
    void FillWithZeros(Long end);

    /// Compares the samples written with the clock, which has `byClock` by now. What the monitor's own clock
    /// has made too few or too many of in ten seconds is put in or left out, one by one, in the next ten.
    /// Milliseconds `now` are the session's.
    void KeepTime(Long now, double byClock);

    /// By how many samples the channel runs behind the clock when all is well.
    double UsualLag() const { return usualLag_.value_or(0); }

    /// Stores the intervals up to `second`, those before it anew where they have changed.
    void StoreIntervals(Long second);

    /// A beat as the lamp wants it.
    struct LampBeat {
        double Time; ///< in the session, s
        bool Prompt; ///< found as it came, not by searching back nor while the levels were learnt
    };
    /// The newest beat, if one has been found since the last call.
    std::optional<LampBeat> NewBeat();

    /// Whether more than half of a second's samples are lost.
    bool SecondLost(Long second) const;

private:
    void CatchUpWithWriteIndex();
    void Put(float sample);
    void Analyse(float sample);
    void PutInTime(float sample);
    void CloseTimeWindow();

    EcgBuffer& ecg_;
    SecondsBuffer& ibi_;
    Long& writeIndex_;
    float& quality_;
    Integer& light_;
    ChannelFigures& figures_;

    std::optional<Resampler> resampler_;
    std::vector<float> ready_; // samples of 128 a second on their way to the buffer
    BeatDetector detector_;
    IntervalSeries intervals_;
    SignalQuality signal_;
    std::optional<LampBeat> newBeat_;
    std::array<std::uint8_t, EcgBufferSize / SamplesPerSecond + 2> lostOfSecond_{};
    Long analysed_ = 0; // samples that the search for beats has seen, from the session's start on
    Long base_ = 0;     // samples before its first one
    float held_ = 0;    // last sample that was not lost
    int lostRun_ = 0;   // lost samples since

    std::optional<Long> connectedAt_; // session time of the first samples, ms
    Long windowStart_ = 0;
    double leastLag_ = 0;
    bool windowOpen_ = false;
    std::optional<double> usualLag_;
    Long corrected_ = 0; // samples put in less those left out since the monitor was connected
    Long toCorrect_ = 0; // still to be put in, or if negative to be left out
    Long spacing_ = 1;   // samples from one correction to the next
    Long sinceCorrection_ = 0;
};

extern LiveChannel LiveChannelA, LiveChannelB;

} // namespace pulselark
