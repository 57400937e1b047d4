#pragma once

#include "analysis/BeatDetector.h"
#include "analysis/IntervalSeries.h"
#include "analysis/MonitorClock.h"
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

    /// From now on the monitor gives `rate` samples a second. What it gave before is finished. `first` is the
    /// place of its first sample in samples of the session; what lies between is lost, what is written
    /// already stays.
    void Connect(double rate, double first);

    /// The monitor's samples are not wanted for now.
    void Disconnect();
    bool Connected() const { return resampler_.has_value(); }

    /// Takes raw samples, NaN for a lost one. At the end of the buffer the rest is dropped.
    void Take(std::span<const float> raw);

    /// The monitor gives nothing: writes what is still on its way from it, and then lost samples up to `end`
    /// samples in all, if there are not so many yet.
    void FillGap(Long end);

    /// Writes samples of 0 up to `end` samples in all: there is no monitor to ask.
    void FillWithZeros(Long end);

    /// Compares what has come with the clock, by which it should be `byClock` samples of the session, at
    /// `now` in its milliseconds. If the monitor's own clock goes otherwise, the samples that follow are
    /// resampled so that the recording keeps the program's time.
    void KeepTime(Long now, double byClock);

    /// By how many samples of the session the monitor runs behind the clock when all is well.
    double UsualLag() const { return clock_.UsualLag(); }

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
    void FillWithLost(Long end);
    void CorrectRate(double missing);

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

    MonitorClock clock_;
    double rate_ = SamplesPerSecond; // that the monitor says it has
    double first_ = 0;               // place of its first sample
    Long firstWritten_ = 0;          // and of the first one of 128 a second
    double raw_ = 0;                 // samples of the monitor since it was connected
    bool corrected_ = false;         // its clock goes otherwise
};

extern LiveChannel LiveChannelA, LiveChannelB;

} // namespace pulselark
