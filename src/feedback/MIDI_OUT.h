#pragma once

#include "base/Numbers.h"

#include <string>
#include <vector>

/// The MIDI output of the program: one device, open or not.
namespace pulselark {

/// One line of the device list.
struct MidiDevice {
    std::string Name;
    int Id; ///< of the port `MidiOutput`; -1 is the mapper
};

extern Long MidiHandle;                       ///< the open output, 0 for none; start 0
extern Boolean MidiReady;                     ///< the device was opened for chords; start 0
extern Integer MidiDeviceIndex;               ///< chosen line of the list from 0, negative for none; start 0
extern std::vector<MidiDevice> lstMidiDevice; ///< the device list of the settings form

/// Fills `list` with the mapper and every device of the system that can be asked.
void FillMidiDevices(std::vector<MidiDevice>& list);

/// Opens a device after closing the one that is open; 0 or the number of the failure.
Integer MidiTryOpen(int deviceId);
/// The same; false, and the message of `MidiError`, if it cannot be opened.
bool MidiOpen(int deviceId);
/// Closes what is open.
void MidiClose();
/// Sends one message and returns the result, 0 for success. Nothing is told to the user.
Integer MidiWord(int status, int data1, int data2);
/// Whether the output takes messages: sends a note of the least velocity. It goes out before every chord.
bool MidiProbe();
/// Shows the output's text for failure `code` in a message.
void MidiError(Integer code);

/// Nothing sounds any more; what is open stays open.
void SilenceMidi();

/// No device is open, the first line of the list is chosen.
void ResetMidiOutput();

} // namespace pulselark
