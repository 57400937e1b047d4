#include "feedback/MIDI_CMD.h"

namespace pulselark {

void PlayMidiChord() {}

} // namespace pulselark
