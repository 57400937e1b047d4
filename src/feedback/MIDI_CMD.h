#pragma once

/// MIDI messages: status byte in the low byte of a word, then data 1, then data 2. Channels are 0 and 1. A
/// message that fails is lost, and the output's text for the failure is shown.
namespace pulselark {

inline constexpr int MidiAllSoundOff = 120; ///< controller number

/// One message.
void MidiShort(int status, int data1, int data2);
/// All sound off, then all notes off.
void MidiAllOff(int channel);
/// `MidiAllOff` on both channels.
void MidiBothOff();
void MidiControl(int channel, int controller, int value);
/// Chooses instrument `program`, 0 to 127, of `bank`.
void MidiProgram(int channel, int bank, int program);
/// The equally tempered note next to `hertz`, with a' = 440 Hz as note 69; note 0 for 0 Hz and below. The
/// velocity is packed as it is, a negative one included.
void MidiNoteOnFrequency(int channel, double hertz, int velocity);

} // namespace pulselark
