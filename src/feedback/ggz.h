#pragma once

/// The training mode: score, scenery and music of the second. There is no training view yet, so
/// `TrainingActive` is never set and these have nothing to do.
namespace pulselark {

extern double DynamicIndex; ///< score of the sliding window, whole, 0 to 100; start 0

/// One second of the training mode.
void TickTraining();
/// Shows which feedback mode is chosen and which runs.
void ApplyModeState();
/// Ends the music and the scenery of a training session.
void StopMusicAndScenery();
/// The scenery shows again what a file dialog has hidden.
void RestoreScenery();

} // namespace pulselark
