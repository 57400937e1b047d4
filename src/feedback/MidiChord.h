#pragma once

/// The heart made audible: one sustained chord, renewed each second.
namespace pulselark {

/// Sounds a chord on both channels, after all that sounds: root, major third, fifth and the fourth below the
/// root. Nothing happens unless the output takes the probe note and was opened for chords.
///
/// In a session the root is 16384 Hz divided by the index of the coherence peak, rounded to whole hertz; the
/// loudness follows the moving average of coherence of channel A one second past the current one (or the
/// Dynamic Index in training mode 3) and is at most 100. A `test` takes the root 440 Hz less `pitchOffset`
/// and the loudness from `level`, 0 to 100.
void PlayMidiChord(bool test, int pitchOffset, int level);

/// Ends the chord of a session that is not renewed any more: the next second wants none, or there is none. A
/// test chord is left to its timer.
void EndMidiChord();

/// No chord sounds.
void ResetMidiChord();

} // namespace pulselark
