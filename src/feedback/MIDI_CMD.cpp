#include "feedback/MIDI_CMD.h"

#include "feedback/MIDI_OUT.h"

#include <cmath>

namespace pulselark {

namespace {

// Status bytes of channel 0 and controllers (MIDI 1.0, General MIDI).
constexpr int NoteOn = 144;
constexpr int ControlChange = 176;
constexpr int ProgramChange = 192;
constexpr int BankSelect = 0;
constexpr int AllNotesOff = 123;

constexpr double ConcertPitch = 440;
constexpr int ConcertPitchNote = 69;

} // namespace

void MidiShort(int status, int data1, int data2) {
    const Integer failure = MidiWord(status, data1, data2);
    if (failure != 0)
        MidiError(failure);
}

void MidiAllOff(int channel) {
    MidiControl(channel, MidiAllSoundOff, 0);
    MidiControl(channel, AllNotesOff, 0);
}

void MidiBothOff() {
    MidiAllOff(0);
    MidiAllOff(1);
}

void MidiControl(int channel, int controller, int value) {
    MidiShort(ControlChange + channel, controller, value);
}

void MidiProgram(int channel, int bank, int program) {
    MidiControl(channel, BankSelect, bank);
    MidiShort(ProgramChange + channel, program, 0);
}

void MidiNoteOnFrequency(int channel, double hertz, int velocity) {
    int note = 0;
    if (hertz > 0)
        note =
            static_cast<int>(Round(12 * std::log(hertz / ConcertPitch) / std::log(2.0))) + ConcertPitchNote;
    MidiShort(NoteOn + channel, note, velocity);
}

} // namespace pulselark
