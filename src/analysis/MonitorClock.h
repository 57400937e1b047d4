#pragma once

#include "base/Numbers.h"

#include <optional>

/// How the clock of a monitor goes beside that of the program, told from the times at which its samples come.
///
/// Samples wait for their packet, for the line and for the program, but never come early; so the least lag
/// behind the clock in two seconds is free of all waiting. Through these least lags lies a line: how far the
/// monitor's count is behind, and by how much it falls back in a second. It is followed by an alpha-beta
/// filter whose memory grows from the first window on, which makes it the line of least squares, and from ten
/// windows on fades (Brookner, Tracking and Kalman Filtering Made Easy, 1998, section 1.2).
///
/// All lags are in samples of the session, 128 a second; times are milliseconds of the session.
namespace pulselark {

class MonitorClock {
public:
    /// Samples are counted anew, the next ones from a place that takes `UsualLag()` for granted. The monitor
    /// is the same, and so is the drift of its clock.
    void Connect();

    /// At the time `now` the samples that have come reach to `behind` samples before the clock.
    void Compare(Long now, double behind);

    /// Samples that the monitor's count has too few by now, or if negative too many: by how much it is
    /// further behind than it was when all began. 0 until ten seconds have told.
    double Missing(Long now) const;

    /// Samples that the monitor makes too few in a second; 0 until it is known.
    double Drift() const { return usual_ ? drift_ : 0; }

    /// By how many samples the count is behind the clock when all is well.
    double UsualLag() const { return usual_.value_or(0); }

    /// Samples that were lost on the way without a word from the monitor, once for each loss. From now on
    /// they count as come.
    Long TakeLoss();

private:
    void CloseWindow(double time);
    bool StepsAside(double residual);
    void Follow(double time, double residual);

    std::optional<Long> connectedAt_;
    Long windowStart_ = 0;
    bool windowOpen_ = false;
    double least_ = 0; // lag of the window

    bool again_ = false; // the drift is known from before
    int windows_ = 0;    // since the samples are counted
    double offset_ = 0;  // lag at the time `at_`, by the line
    double at_ = 0;      // s
    double drift_ = 0;   // samples a second
    double aside_ = 0;   // by how much the window before lay off the line, if it was left out
    Long loss_ = 0;
    std::optional<double> usual_;
};

} // namespace pulselark
