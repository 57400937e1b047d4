#pragma once

#include <array>
#include <cstdint>

/// The last four seconds of an ECG of 128 samples a second, and its envelopes in three bands.
///
/// An envelope is the magnitude of a complex Gabor filter (a Gaussian of 20 to 45 ms times a wave without a
/// constant part), so that it depends neither on the polarity nor on the baseline. Samples count from 0.
namespace pulselark {

class QrsSignal {
public:
    enum Band { Qrs, Below, Above }; ///< around 11, 5 and 22 Hz
    static constexpr int Bands = 3;
    static constexpr int Reach = 14; ///< samples that an envelope needs after its own

    QrsSignal();

    /// Takes a sample, NaN for a lost one. Over lost samples the signal stands still, and after a gap (see
    /// `BesideGap`) it goes on where it stood.
    void Push(float sample);

    std::int64_t Count() const { return count_; }
    /// The sample and the envelope, from 512 samples ago; before the record as its first sample. The envelope
    /// is known up to `Count() - 1 - Reach`.
    float Sample(std::int64_t index) const { return samples_[Place(index)]; }
    float Envelope(Band band, std::int64_t index) const { return envelopes_[band][Place(index)]; }

    /// Whether from `reach` samples before to `reach` samples after `index` samples were lost (three or more)
    /// or the line was flat (any one value for 96 samples, or 0 for 20 after a step down or up to it).
    bool BesideGap(double index, double reach) const;
    /// Whether there was such a gap between two places.
    bool GapBetween(double from, double to) const {
        return static_cast<double>(gapEnd_) > from && static_cast<double>(gapStart_) < to;
    }

private:
    static constexpr int RingSize = 512;
    using Ring = std::array<float, RingSize>;
    struct Filter {
        std::array<float, 2 * Reach + 1> Cosine, Sine;
    };

    static std::size_t Place(std::int64_t index) { return static_cast<std::size_t>(index & (RingSize - 1)); }
    void WatchGaps(float sample);
    float EnvelopeAt(const Filter& filter, std::int64_t centre) const;

    std::array<Filter, Bands> filters_{};
    Ring samples_{};
    std::array<Ring, Bands> envelopes_{};
    std::int64_t count_ = 0;
    float held_ = 0;   // last value that went in
    float offset_ = 0; // added so that the signal goes on where it stood
    float before_ = 0; // last sample that was not lost, as it came
    int lostRun_ = 0, equalRun_ = 0;
    bool brokenOff_ = false;                                   // the signal jumped to 0
    std::int64_t gapStart_ = -1'000'000, gapEnd_ = -1'000'000; // the last gap
};

} // namespace pulselark
