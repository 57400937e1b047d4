#pragma once

#include "analysis/Beat.h"
#include "analysis/QrsSignal.h"

#include <array>
#include <cstdint>
#include <span>

/// What the beats and the other waves so far have taught, and how much a new wave looks like a beat by it.
namespace pulselark {

/// A peak of the envelope in the QRS band. Samples count from 0.
struct QrsCandidate {
    std::int64_t Place = 0;                       ///< of the envelope's peak
    double Mark = 0;                              ///< of the QRS peak, finer than a sample
    std::array<float, QrsSignal::Bands> Height{}; ///< of the envelopes about there, natural logarithms
    float Ahead = 0;  ///< highest envelope 0.08 to 0.18 s later over its own, logarithm
    double Score = 0; ///< logarithm of the odds that it is a beat
    Beat Found;
};

class QrsLevels {
public:
    /// A T wave lies within so many samples of its beat.
    static constexpr double TWaveEnd = 0.45 * 128;

    /// Starts anew from waves that nobody has judged: those almost as high as the second highest pass for
    /// beats.
    void Learn(std::span<const QrsCandidate> candidates);

    /// Logarithm of the odds that the candidate, so many samples after the last beat, is a beat. A linear
    /// discriminant of heights over the levels of beats, T waves and other waves, share of the band above,
    /// likeness to the last beats and the last other waves, and time since the last beat over the usual
    /// interval. Its weights are the mean of two logistic regressions: one on the first leads of 22 records
    /// of the MIT-BIH Arrhythmia Database and of two of its Noise Stress Test Database, one on these, on
    /// their second leads, and on the first leads with white noise and electrode motion added.
    double Score(const QrsCandidate& candidate, double sinceLast) const;

    /// A wave was judged to be a beat. `interval` in samples; 0 if there is none to learn.
    void AddBeat(const QrsCandidate& candidate, double interval);
    /// A wave was judged not to be one.
    void AddOther(const QrsCandidate& candidate, double sinceLast);
    /// The last beat was none, but a wave before `beat`.
    void ReplaceBeat(const QrsCandidate& wave, const QrsCandidate& beat);

    /// Median of the last eight intervals, samples; that of 60 beats a minute before the first.
    double UsualInterval() const;

private:
    static constexpr std::size_t Kept = 8;
    struct Recent {
        std::array<float, Kept> Values{};
        std::size_t Count = 0;
        void Add(float value) { Values[Count++ % Kept] = value; }
        float Median() const;
    };
    struct Shapes {
        std::array<Beat, Kept> Values{};
        std::size_t Count = 0;
        void Add(const Beat& beat) { Values[Count++ % Kept] = beat; }
    };
    struct Likeness {
        double Best = 0, Mean = 0;
    };

    static double Correlation(const Beat& one, const Beat& other);
    static Likeness LikenessTo(const Shapes& shapes, const Beat& beat);

    Recent heights_, intervals_;
    Shapes beats_, others_;
    double restLevel_ = 0, tWaveLevel_ = 0; // of the waves that are no beats, logarithms
};

} // namespace pulselark
