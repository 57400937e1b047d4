#pragma once

#include "session/Replay.h"

/// Choosing and starting a feedback mode: the clicks on the buttons `imBFC`, 0 to 3 for the modes, 4 for the
/// scenery, 5 for the music.
namespace pulselark {

inline constexpr int SceneryButton = 4;
inline constexpr int MusicButton = 5;
inline constexpr int ModeButtonCount = 6;

/// A click on a button. The left one starts or stops; the right one only chooses, and only while neither a
/// stored session nor a recording feeds the training.
void ClickModeButton(int index, MouseButton button);

/// The work of a click, in an order that the scenery relies on. With `selectOnly` the mode is chosen and
/// nothing starts. An unsaved session is asked about before a level that would record is started.
void SelectFeedbackMode(int index, bool selectOnly);

/// A training session that is fed from a replay stops: the scenery stands still, the music dies away. Nothing
/// happens outside of one.
void StopFeedback();

} // namespace pulselark
