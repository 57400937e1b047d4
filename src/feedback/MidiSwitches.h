#pragma once

#include "base/Numbers.h"

#include <string>
#include <vector>

/// Switching the sound on and off, and trying it out: what the settings form and the player panel do with the
/// MIDI output.
namespace pulselark {

/// Opens the chosen device and sets program 0 on both channels; `MidiReady` says whether it is open. With no
/// device chosen nothing is opened. On a failure the message of a failed output is shown.
void OpenMidiOutput();
/// Opens the output if the last run left a wish for sound; a failure is told on the status line only.
void OpenMidiOutputAtStart();
/// Lists the devices anew, as they are now and in the language of now. The chosen line stays the same device;
/// if that has gone, none is chosen. A list that nobody has filled yet stays empty.
void RefreshMidiDevices();
/// Chooses line `index` of the device list and opens its device at once. A line that is not there does
/// nothing.
void ChooseMidiDevice(int index);

/// Turn over the wish for sound with the panels and in training. Turning it on opens the output and sounds a
/// chord for 2.5 seconds; an output that cannot be opened leaves the wish off, with a message.
void ToggleMidiPanels();
void ToggleMidiTraining();

/// A test chord that `timSoundsOff` ends after 2.5 seconds.
void PlayTestChord(int pitchOffset, int level);

// The instruments. Row r of the list stands for General MIDI program r - 3; the rows before are its head.
inline constexpr int FirstInstrumentRow = 3;
extern std::vector<std::string> MidiInstrumentNames; ///< in the order of the programs
extern Integer MidiInstrument;                       ///< program in use, from 0; start 0
/// Reads `config/genmidi.txt`, one name a line, 500 at most; without the file the list is empty.
void LoadMidiInstruments();
/// The pointer chose a row of the list: both channels take its instrument and a test chord sounds. A row
/// outside the list does nothing; an output that does not answer is told once.
void ChooseMidiInstrument(int row);

/// No wish, no instrument, nothing told.
void ResetMidiSwitches();

} // namespace pulselark
