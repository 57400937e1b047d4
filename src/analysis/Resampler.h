#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// Brings the samples of a monitor of any rate to the 128 samples a second of the session.
///
/// A low-pass of windowed-sinc form (Kaiser window; Oppenheim and Schafer, Discrete-Time Signal Processing,
/// section 7.5) is evaluated at the places of the outputs, from a table of 256 phases with linear
/// interpolation between them; for a whole number of hertz every output falls onto a phase, so nothing is
/// interpolated. The rate may be corrected in passing, which moves the places of the outputs and nothing
/// else. The filter is symmetric and centred on the output, so its group delay is taken out: output k (from
/// 0) belongs to the time k / 128 s after the first input, and comes `Delay()` later. What lies before the
/// first input counts as equal to it. At 128 samples a second, as long as that is not corrected, every output
/// is an input, and comes at once.
namespace pulselark {

class Resampler {
public:
    static constexpr double OutputRate = 128;

    /// Whether `rate` is one that it takes.
    static bool CanTake(double rate) { return rate >= 10 && rate <= 10000; }

    /// Zero crossings of the filter on each side. What either lets through below 30 Hz is right to 0.5 %. The
    /// prompt one comes 16 ms sooner, and begins to take away from 40 Hz on.
    enum Filter : int { Thorough = 8, Prompt = 6 };

    /// `rate` in samples a second, 10 to 10000; outside of it failure 6. The first output lies `first` inputs
    /// after the first one, 0 or more.
    explicit Resampler(double rate, double first = 0, Filter filter = Thorough);

    /// From the next output on inputs come at `rate`, which is close to that of the beginning.
    void CorrectRate(double rate) { step_ = rate / OutputRate; }

    /// Takes one input sample, any unit; appends the outputs that are now complete. A lost sample is a NaN:
    /// it keeps its place in time. An output beside a lost sample (within one input interval) is a NaN too;
    /// for the others a lost sample counts as the one before it.
    void Push(float sample, std::vector<float>& out);

    /// Appends the outputs up to the time of the last input; what would come after it counts as equal to it.
    void Flush(std::vector<float>& out);

    /// How far the last input lies behind the first output, in outputs.
    double Reached() const;

    /// Seconds from the time of an output to the arrival of the last input it needs; `Filter` / 128 and an
    /// input more at most from 128 samples a second on, `Filter` / rate below.
    double Delay() const;

private:
    static constexpr int Phases = 256;

    void MakeTable();
    void MoveOn(double inputs);
    double Beyond() const; // inputs from the place of the next output to the last input
    bool PassesThrough() const { return step_ == 1 && fraction_ == 0; }
    void Take(float sample, bool lost);
    void GiveCompleteOutputs(std::vector<float>& out);
    float NextOutput() const;

    double step_;                // inputs from one output to the next
    int half_ = 0;               // inputs needed on each side of an output
    std::vector<float> table_;   // Phases + 1 rows of 2 * half_ weights
    std::vector<float> samples_; // ring of the last inputs, lost ones filled
    std::vector<char> lost_;     // beside them
    std::int64_t inputs_ = 0;    // samples taken
    std::int64_t outputs_ = 0;   // samples given
    std::int64_t whole_ = 0;     // place of the next output among the inputs, its whole part
    double fraction_ = 0;        // and the rest
    float last_ = 0;             // last sample that was not lost
};

} // namespace pulselark
