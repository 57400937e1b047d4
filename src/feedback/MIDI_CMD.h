#pragma once

/// The MIDI engine: one chord a second from the coherence peak. There is no sound output yet.
namespace pulselark {

/// Sounds the chord of the second.
void PlayMidiChord();

} // namespace pulselark
