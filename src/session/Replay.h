#pragma once

#include "base/Numbers.h"

/// Replay of the session in the buffers: a state of the timer `timReplay`. The cursor `SessionTick` survives
/// the end of a replay, so that the next one goes on at the same second.
namespace pulselark {

/// Mouse buttons, as the buttons of the top bar are told of them.
enum MouseButton : int { LeftButton = 1, RightButton = 2 };

/// Starts to play at the cursor. The music of a training session starts anew unless `keepPlayer`.
void StartReplay(bool keepPlayer);

/// Stops playing; the cursor stays.
void EndReplay();

/// The handler of `timReplay`: one second, or the end of the replay when the cursor has reached the session's
/// last second. A session of N seconds plays the seconds 1 to N - 1.
void ReplayTick();

/// Release of `picReplay`: stops a running replay; otherwise starts one, in time lapse with the left button
/// while `FeedbackEnabled`, else at normal speed. Nothing happens during a recording, below 5 seconds of data
/// or while `MovieCommandsBlocked`.
void ReleaseReplayButton(MouseButton button);

/// Release of `picStop`: ends the replay and goes back to second 1. Nothing happens during a recording or
/// below 5 seconds of data.
void ReleaseStopButton();

} // namespace pulselark
