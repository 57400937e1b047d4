#pragma once

#include "base/Controls.h"

/// The pictures of the record, replay and stop buttons in every state.
namespace pulselark {

/// Draws the three buttons from the flags: a session of at least 5 seconds can be replayed and stopped, a
/// replay that runs can be stopped, during a recording neither can be used. `force` draws them even while
/// nothing has changed, as after a change of the colour scheme.
void RefreshSessionButtons(bool force);

/// The pointer comes over `picReplay` or `picStop`, or leaves it; a button that cannot be used does not
/// change.
void HoverSessionButton(PictureButton& button, bool over);

/// The record button: dark at rest, lit while a recording runs, and dark for the blink of `timLedBlink` that
/// each beat starts.
void DrawRecordLamp();

/// Whether the record button shows its highlight.
bool RecordButtonLifted();

/// The pointer comes over `picStartSmp`, or leaves it: its highlight differs between a recording that runs
/// and none.
void HoverRecordButton(bool over);

/// `picStop` is pressed, until it is released.
void PressStopButton();

/// Whether a button can be used, by its frame.
bool ButtonAvailable(const PictureButton& button);

} // namespace pulselark
