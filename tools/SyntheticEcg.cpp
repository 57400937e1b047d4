#include "SyntheticEcg.h"

#include "session/MainBuffers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <vector>

namespace pulselark {

namespace {

constexpr double TwoPi = 2 * std::numbers::pi;
constexpr double PanelUnitsPerMillivolt = 500;
constexpr double BreathsPerSecond = 0.1;

// Seconds of heart beat before the first sample and after the last one, so that no wave is cut off.
constexpr double Margin = 3;

// SplitMix64 (Steele, Lea and Flood, OOPSLA 2014): the library's distributions differ between makers.
class Dice {
public:
    /// Even between -1 and 1.
    double Throw() {
        state_ += 0x9E3779B97F4A7C15U;
        std::uint64_t bits = state_;
        bits = (bits ^ (bits >> 30U)) * 0xBF58476D1CE4E5B9U;
        bits = (bits ^ (bits >> 27U)) * 0x94D049BB133111EBU;
        bits ^= bits >> 31U;
        return static_cast<double>(bits >> 11U) * 0x1p-52 - 1;
    }

private:
    std::uint64_t state_ = 20030317;
};

/// A beat: when its R wave stands, s, and the interval that ended there, s.
struct Beat {
    double Time;
    double Interval;
};

double Breath(double time) {
    return std::sin(TwoPi * BreathsPerSecond * time);
}

// Beats per minute: breathing in speeds the heart up; two slow waves stand for all that drifts in a body.
double HeartRate(double time, double drift) {
    return 66 + 5 * Breath(time) + 0.7 * std::sin(TwoPi * 0.023 * time + drift) +
           0.5 * std::sin(TwoPi * 0.041 * time + 2.4 * drift);
}

std::vector<Beat> MakeBeats(double seconds) {
    constexpr double BeatScatter = 0.004;
    Dice dice;
    const double drift = std::numbers::pi * dice.Throw();
    std::vector<Beat> beats;
    for (double time = -Margin; time < seconds + Margin;) {
        // The rate halfway to the next beat, so that the intervals follow the breath without a lag.
        const double halfInterval = 30 / HeartRate(time, drift);
        const double interval = 60 / HeartRate(time + halfInterval, drift) * (1 + BeatScatter * dice.Throw());
        time += interval;
        beats.push_back({time, interval});
    }
    return beats;
}

/// One wave of a beat: its middle against the R wave, s, its width (standard deviation), s, and its height in
/// the two leads, mV.
struct Wave {
    double Middle;
    double Width;
    double HeightA, HeightB;
};

// The T wave ends with the QT interval, which grows with the root of the beat interval (Bazett).
std::array<Wave, 5> WavesOf(const Beat& beat) {
    constexpr double QtAtOneSecond = 0.40;
    constexpr double QrsOnset = -0.042;
    const double root = std::sqrt(beat.Interval);
    const double widthT = 0.046 * root;
    const double middleT = QrsOnset + QtAtOneSecond * root - 2 * widthT;
    return {{{-0.165, 0.021, 0.11, 0.06},
             {-0.027, 0.009, -0.09, -0.02},
             {0, 0.011, 1.05, 0.38},
             {0.029, 0.011, -0.22, -0.80},
             {middleT, widthT, 0.35, 0.26}}};
}

double Height(const Wave& wave, double afterR) {
    const double widths = (afterR - wave.Middle) / wave.Width;
    return std::exp(-0.5 * widths * widths);
}

/// Millivolts of both leads at every sample.
struct Leads {
    explicit Leads(Long samples) : A(static_cast<std::size_t>(samples)), B(A.size()) {}
    std::vector<double> A, B;
};

void AddBeat(const Beat& beat, Leads& leads) {
    constexpr double Before = 0.35; // s around the R wave in which a beat shows
    constexpr double After = 0.65;
    const double breath = 1 + 0.04 * Breath(beat.Time);
    const auto waves = WavesOf(beat);
    const auto count = static_cast<std::int64_t>(leads.A.size());
    const std::int64_t first = std::max<std::int64_t>(0, Round((beat.Time - Before) * SamplesPerSecond));
    const std::int64_t last = std::min(count - 1, Round((beat.Time + After) * SamplesPerSecond));
    for (std::int64_t i = first; i <= last; ++i) {
        const double afterR = static_cast<double>(i) / SamplesPerSecond - beat.Time;
        for (const Wave& wave : waves) {
            const double height = breath * Height(wave, afterR);
            leads.A[static_cast<std::size_t>(i)] += wave.HeightA * height;
            leads.B[static_cast<std::size_t>(i)] += wave.HeightB * height;
        }
    }
}

float Rounded(double value, double stepsPerUnit) {
    return static_cast<float>(static_cast<double>(Round(value * stepsPerUnit)) / stepsPerUnit);
}

void StoreLeads(const Leads& leads) {
    constexpr double WanderA = 0.012; // mV by which breathing moves the baseline
    constexpr double WanderB = -0.008;
    for (std::size_t i = 0; i < leads.A.size(); ++i) {
        const double breath = Breath(static_cast<double>(i) / SamplesPerSecond);
        const int sample = static_cast<int>(i) + 1;
        EcgA[sample] = Rounded(PanelUnitsPerMillivolt * (leads.A[i] + WanderA * breath), 100);
        EcgB[sample] = Rounded(PanelUnitsPerMillivolt * (leads.B[i] + WanderB * breath), 100);
    }
}

void StoreIntervals(const std::vector<Beat>& beats, Long seconds) {
    auto beat = beats.begin();
    float interval = 1;
    // Second 0 gathers the beats before the session.
    for (Long second = 0; second <= seconds; ++second) {
        double sum = 0;
        int count = 0;
        for (; beat != beats.end() && beat->Time < second; ++beat) {
            sum = second > 0 ? sum + beat->Interval : beat->Interval;
            count = second > 0 ? count + 1 : 1;
        }
        if (count > 0)
            interval = Rounded(sum / count, 10000);
        if (second > 0)
            IbiA[second] = IbiB[second] = interval;
    }
}

} // namespace

void FillWithSyntheticEcg(Long seconds) {
    const std::vector<Beat> beats = MakeBeats(seconds);
    Leads leads(seconds * SamplesPerSecond);
    for (const Beat& beat : beats)
        AddBeat(beat, leads);
    StoreLeads(leads);
    StoreIntervals(beats, seconds);
    SessionSeconds = seconds;
    ChannelMode = 1;
    ChannelBPresent = On;
}

} // namespace pulselark
