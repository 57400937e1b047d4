#include "scenery/SceneryState.h"

#include "scenery/Whole.h"

#include <algorithm>
#include <cmath>

namespace pulselark {

namespace {

constexpr double UsualEase = 5, LapseEase = 2; // seconds
constexpr double UsualPace = 1, LapsePace = 2.5;
constexpr int HighestLevel = 3;

} // namespace

WindowAction SceneryState::Take(const LinkMessage& message, double now) {
    const WindowAction action = orders_.Take(message);
    if (message.Kind == LinkKind::Value)
        TakeValue(message.Value, now);
    else if (action == WindowAction::Nothing && message.Kind == LinkKind::Command &&
             WholeBetween(message.Command, 0, CmdSceneRect))
        TakeSetting(static_cast<int>(message.Command), message.Parameter[0], now);
    return action;
}

void SceneryState::TakeSetting(int command, double p1, double now) {
    switch (command) {
    case CmdSetLevel:
        if (WholeBetween(p1, -1, HighestLevel) && level_ != static_cast<int>(p1)) {
            level_ = static_cast<int>(p1);
            usualRate_ = 0;
        }
        break;
    case CmdLevelDone:
        if (level_ <= 0)
            light_.Aim(RestingLight, now, UsualEase);
        break;
    case CmdStartScroll:
    case CmdStopScroll:
        scrollTold_ = true;
        SetScrolling(command == CmdStartScroll, now);
        break;
    case CmdBreathingRate:
        breath_.SetRate(p1, now);
        break;
    case CmdBreathingBalance:
        breath_.SetBalance(p1, now);
        break;
    case CmdPacerOn:
    case CmdPacerOff:
        SetPacer(command == CmdPacerOn, now);
        break;
    case CmdReplayLong:
    case CmdReplayNormal:
        timeLapse_ = command == CmdReplayLong;
        SetScrolling(scrolling_, now);
        break;
    case CmdStopNoTraining:
        Rest(now);
        break;
    case CmdSessionStart:
        usualRate_ = 0;
        light_.Aim(RestingLight, now, UsualEase);
        break;
    case CmdBreathToolPlain:
    case CmdBreathToolFeedback:
        feedback_ = command == CmdBreathToolFeedback;
        if (!feedback_)
            light_.Aim(RestingLight, now, UsualEase);
        break;
    default:
        constexpr int Schemes = 5;
        if (command >= CmdStyle && command < CmdStyle + Schemes)
            scheme_ = command - CmdStyle;
    }
}

void SceneryState::SetScrolling(bool scrolling, double now) {
    scrolling_ = scrolling;
    const double pace = timeLapse_ ? LapsePace : UsualPace;
    clock_.SetPace(scrolling && !reducedMotion_ ? pace : 0, now);
}

void SceneryState::SetPacer(bool on, double now) {
    if (on && !pacerOn_)
        breath_.Start(now);
    pacerOn_ = on;
}

void SceneryState::Rest(double now) {
    SetScrolling(false, now);
    SetPacer(false, now);
    light_.Aim(RestingLight, now, UsualEase);
}

// The heart is quicker on the in-breath and slower on the out-breath; the height swings with it about the
// person's own rate, and a swing of 12 beats per minute takes it three quarters of the way to the border.
double SceneryState::LightOfInterval(double seconds) {
    constexpr double SecondsPerMinute = 60, Swing = 12, Follow = 0.04, Reach = 0.4;
    const double rate = SecondsPerMinute / seconds;
    usualRate_ = usualRate_ == 0 ? rate : usualRate_ + Follow * (rate - usualRate_);
    return RestingLight + Reach * std::tanh((rate - usualRate_) / Swing);
}

void SceneryState::TakeValue(double value, double now) {
    constexpr double ShortestInterval = 0.2, LongestInterval = 3, Percent = 100;
    if (!std::isfinite(value) || !feedback_)
        return;
    const double ease = timeLapse_ ? LapseEase : UsualEase;
    // A scenery that comes into a session that runs hears the level and its values, but not the start.
    if (level_ >= 2 && !scrollTold_ && !scrolling_)
        SetScrolling(true, now);
    if (level_ >= 2)
        light_.Aim(std::clamp(value / Percent, 0.0, 1.0), now, ease);
    else if (level_ == 1 && value >= ShortestInterval && value <= LongestInterval)
        light_.Aim(LightOfInterval(value), now, LapseEase);
}

} // namespace pulselark
