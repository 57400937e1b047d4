#pragma once

namespace pulselark {

/// A number that follows its target without a jump in place or speed: a critically damped spring, as a
/// function of time. Times are seconds.
class EasedValue {
public:
    explicit EasedValue(double start) : from_(start), target_(start) {}

    /// `seconds` after which about 9/10 of a step are done.
    void Aim(double target, double now, double seconds);
    double At(double now) const;
    double Target() const { return target_; }
    /// Too near to its target for anybody to see a difference.
    bool Settled(double now) const;

private:
    struct Motion {
        double Place, Speed;
    };
    Motion MotionAt(double now) const;

    double from_, target_;
    double speed_ = 0;
    double since_ = 0;
    double stiffness_ = 1;
};

/// Time of a scene that starts and stops softly: seconds of motion as a function of the clock's seconds.
class SceneClock {
public:
    /// `pace`: 0 stands still, 1 is the clock's own pace.
    void SetPace(double pace, double now);
    double At(double now) const;
    bool Moving(double now) const;

private:
    double PaceAt(double now) const;

    double since_ = 0, passed_ = 0;
    double startPace_ = 0, pace_ = 0;
};

} // namespace pulselark
