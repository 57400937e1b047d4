#pragma once

/// The training mode: score, scenery and music of the second. There is no training view yet, so
/// `TrainingActive` is never set and these have nothing to do.
namespace pulselark {

/// One second of the training mode.
void TickTraining();
/// Shows which feedback mode is chosen and which runs.
void ApplyModeState();
/// Ends the music and, a little later, the scrolling of the scenery.
void StopMusicAndScenery();
/// A file dialog has hidden the scenery: its cover stands in.
void RestoreScenery();

} // namespace pulselark
