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
    float Ahead = 0;  ///< steepest slope 0.09 to 0.27 s later over its own, natural logarithm
    double Score = 0; ///< logarithm of the odds that it is a beat
    Beat Found;

    /// Of the bands at 11 and 22 Hz together: between a QRS and a P or T wave it differs more than the first.
    float Steepness() const { return Height[QrsSignal::Qrs] + Height[QrsSignal::Above]; }
};

class QrsLevels {
public:
    /// A T wave lies within so many samples of its beat.
    static constexpr double TWaveEnd = 0.45 * 128;

    /// Starts anew from waves that nobody has judged: those almost as steep as the second steepest pass for
    /// beats.
    void Learn(std::span<const QrsCandidate> candidates);

    /// Logarithm of the odds that the candidate, so many samples after the last beat, is a beat. A linear
    /// discriminant of heights over the levels of beats, T waves and other waves, share of the band above,
    /// likeness to the last beats, time since the last beat over the usual interval, and whether something
    /// steeper follows (as the QRS does a P wave). Its weights are one logistic regression with a weak
    /// ridge (20), errors above 0.9 counting as 0.9, in two rounds, the second on what the weights of the
    /// first let through. Fitted on 22 records of the MIT-BIH Arrhythmia Database, first lead, together with
    /// altered copies of lower weight: the second lead, two mixtures of the leads, white noise of 20 uV,
    /// electrode motion, a wandering baseline, another phase of sampling, rates 10 % lower and higher, taller
    /// P and T waves; and on two records of its Noise Stress Test Database. The constant was then raised by
    /// 0.15 to miss fewer beats.
    double Score(const QrsCandidate& candidate, double sinceLast) const;

    /// A wave was judged to be a beat. `interval` in samples; 0 if there is none to learn.
    void AddBeat(const QrsCandidate& candidate, double interval);
    /// A wave was judged not to be one.
    void AddOther(const QrsCandidate& candidate, double sinceLast);
    /// The last beat was none, but a wave before `beat`.
    void ReplaceBeat(const QrsCandidate& beat);

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

    static double Correlation(const Beat& one, const Beat& other);
    double LikenessToBeats(const Beat& beat) const;

    Recent heights_, aboveHeights_, intervals_; // of the last beats
    std::array<Beat, Kept> beats_;
    std::size_t beatCount_ = 0;
    double restLevel_ = 0, tWaveLevel_ = 0; // of the waves that are no beats, logarithms
};

} // namespace pulselark
