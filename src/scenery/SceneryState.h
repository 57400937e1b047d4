#pragma once

#include "platform/link/LinkFormat.h"
#include "scenery/BreathPhase.h"
#include "scenery/Easing.h"
#include "scenery/WindowOrders.h"

/// What the scenery program knows, and what the messages of the link do to it. Plain C++; times are seconds
/// of a steady clock.
///
/// | Message | Reaction |
/// |---|---|
/// | 222 level | the values that follow are read as this level's; another level starts from rest |
/// | 223 | the new level holds: its first light is aimed at |
/// | 225, 226 | the scenery begins, ends to scroll, softly |
/// | 227 | the program ends |
/// | 228 rate, 232 balance | of the pacer, which stays where it is in its breath |
/// | 230, 231 | the pacer comes, beginning with an in-breath, or goes |
/// | 233 | the scenery and its place are kept; comes forward |
/// | 234 | comes forward and shows the choice of sceneries |
/// | 237, 238 | time lapse, usual time: how fast the scenery follows and scrolls |
/// | 239, 241 | steps behind the other windows |
/// | 240, 242 | comes forward again; 242 only ends what 241 began |
/// | 321 | everything comes to rest |
/// | 244 | a session starts: the value starts from rest |
/// | 123, 999 | without, with feedback: whether values count |
/// | 500 to 504 | colours of what lies over the scenery |
/// | 123123 | takes this place and comes forward |
/// | value | levels 2 and 3: percent; level 1: interval between beats in seconds; else none |
/// | 243, arrays | of no use to a scenery |
///
/// A scenery that comes into a session that runs has missed the start: until a 225 or 226 comes, a value at
/// levels 2 and 3 lets it scroll.
///
/// Anything else is ignored, and so are parameters that are no numbers.
namespace pulselark {

class SceneryState {
public:
    /// Takes in a message; what the window has to do about it.
    WindowAction Take(const LinkMessage& message, double now);

    /// 0 (dull) to 1 (radiant): weather, light and height of the scenery.
    double Light(double now) const { return light_.At(now); }
    /// Seconds for which the scenery has scrolled.
    double SceneTime(double now) const { return clock_.At(now); }
    Breath BreathAt(double now) const { return breath_.At(now); }

    bool ScenerySettled(double now) const { return light_.Settled(now) && !clock_.Moving(now); }
    bool Scrolling() const { return scrolling_; }
    bool PacerOn() const { return pacerOn_; }
    int Level() const { return level_; }
    int Scheme() const { return scheme_; }
    const BreathPhase& Pacer() const { return breath_; }
    const ScenePlace& Place() const { return orders_.Place(); }

    /// For whoever asked the system for less motion: nothing scrolls, only light and height change.
    void SetReducedMotion(bool reduced) { reducedMotion_ = reduced; }

    /// Light before any value, and outside training.
    static constexpr double RestingLight = 0.5;

private:
    void TakeSetting(int command, double p1, double now);
    void TakeValue(double value, double now);
    double LightOfInterval(double seconds);
    void SetScrolling(bool scrolling, double now);
    void SetPacer(bool on, double now);
    void Rest(double now);

    BreathPhase breath_;
    EasedValue light_{RestingLight};
    SceneClock clock_;
    WindowOrders orders_;
    int level_ = -1;
    int scheme_ = 0;
    double usualRate_ = 0;    ///< beats per minute that level 1 swings about, 0 before its first value
    bool scrollTold_ = false; ///< 225 or 226 has come, and alone counts from then on
    bool scrolling_ = false, pacerOn_ = false, feedback_ = true, timeLapse_ = false;
    bool reducedMotion_ = false;
};

} // namespace pulselark
