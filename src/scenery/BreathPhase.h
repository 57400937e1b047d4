#pragma once

namespace pulselark {

/// Where a breath stands.
struct Breath {
    bool In = true;  ///< the in-breath, else the out-breath
    double Part = 0; ///< how much of it is done, 0 to below 1
    /// Size of the pacer's disc, 0.4 (empty) to 1 (full): half a sine up, half a sine down.
    double Size = 0.4;
};

/// The paced breath: a function of the time that has passed, so that it cannot drift. Changes of rate and
/// balance leave the breath where it stands. Times are seconds of any steady clock.
class BreathPhase {
public:
    static constexpr double LowestRate = 2, HighestRate = 60;
    static constexpr double LowestBalance = 1, HighestBalance = 10;
    static constexpr double EmptySize = 0.4;

    /// The next in-breath begins at `now`.
    void Start(double now) { begin_ = now; }
    /// Breaths per minute, held to 2 to 60; no number is no change.
    void SetRate(double rate, double now);
    /// Length of the out-breath as a multiple of the in-breath, held to 1 to 10; no number is no change.
    void SetBalance(double balance, double now);

    double Rate() const { return rate_; }
    double Balance() const { return balance_; }
    Breath At(double now) const;

private:
    double Period() const;
    void Change(double& setting, double value, double now);

    double begin_ = 0;
    double rate_ = 7.5;
    double balance_ = 1;
};

} // namespace pulselark
