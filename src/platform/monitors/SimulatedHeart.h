#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

namespace pulselark {

/// How a simulated heart beats.
struct HeartManner {
    std::uint32_t Seed = 1;
    double Rate = 65;      ///< mean, beats a minute
    double Breathing = 6;  ///< breaths a minute
    double Depth = 6;      ///< how far breathing swings the rate to each side, beats a minute
    double Ectopic = 0;    ///< per cent of the beats that come early
    double Lateness = 0.5; ///< beats of the first beat's phase, 0 to 1
};

/// A beat as it truly is.
struct SimulatedBeat {
    double Time = 0; ///< of the R peak, seconds
    bool Ectopic = false;
};

/// Draws from a seed that are the same with every compiler, where the library's distributions are not.
class SeededDraws {
public:
    explicit SeededDraws(std::uint32_t seed) : engine_(seed) {}
    /// From 0 up to and without 1.
    double Even();
    /// Mean 0, deviation 1 (Box and Muller 1958).
    double Normal();

private:
    std::mt19937 engine_;
};

/// An ECG whose beats follow breathing. The rate is Rate + Depth * sin(2 pi Breathing / 60 t); a beat falls
/// where the integral of the rate passes the next whole number (integral pulse frequency modulation: Bayly
/// 1968), give or take a deviation of 4 ms. Each beat is a sum of Gaussian bumps P, Q, R, S and T, as in
/// McSharry et al. 2003 ("A dynamical model for generating synthetic electrocardiogram signals"), with P and
/// T at distances that go with the square root of the interval before. An ectopic beat comes at 0.62 of its
/// interval, wide, without P and with its T turned over; the next one comes at its own time, after a pause.
class SimulatedHeart {
public:
    explicit SimulatedHeart(const HeartManner& manner);

    /// The ECG in millivolts. From call to call the time, in seconds from 0 on, must not go back.
    double MillivoltsAt(double time);

    /// All beats so far, and one or two that are still to come.
    const std::vector<SimulatedBeat>& Beats() const { return beats_; }

private:
    double PhaseAt(double time) const;
    double TimeOfPhase(double phase, double after) const;
    void AddBeat();
    double BeatMillivolts(std::size_t beat, double time) const;

    HeartManner manner_;
    double breath_; // radians a second
    SeededDraws draws_;
    std::vector<SimulatedBeat> beats_;
    std::size_t oldest_ = 0; // first beat that is still to be seen
    double phase_;
    double regular_ = 0; // where the last beat falls without deviation
};

} // namespace pulselark
