#include "feedback/MidiSwitches.h"

#include "feedback/MIDI_CMD.h"
#include "feedback/MIDI_OUT.h"
#include "feedback/MidiChord.h"
#include "platform/Platform.h"
#include "platform/ProgramFolder.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"

#include <algorithm>

namespace pulselark {

std::vector<std::string> MidiInstrumentNames;
Integer MidiInstrument = 0;

namespace {

constexpr int TestLevel = 80;
constexpr int InstrumentPitchOffset = 100;
constexpr std::size_t MostInstruments = 500;

bool instrumentFailureTold = false;

// Closes, opens and sets up the chosen device; the number of the failure that stopped it, or 0.
Integer TryOpenMidiOutput() {
    MidiReady = Off;
    if (MidiDeviceIndex < 0)
        return 0;
    const auto line = static_cast<std::size_t>(MidiDeviceIndex);
    if (line >= lstMidiDevice.size())
        return FailureIndexOutOfRange;
    const Integer failure = MidiTryOpen(lstMidiDevice[line].Id);
    if (failure != 0)
        return failure;
    for (const int channel : {0, 1})
        MidiProgram(channel, 0, 0);
    MidiReady = On;
    return 0;
}

void ToggleWish(Boolean& wish) {
    if (wish != Off) {
        wish = Off;
        SilenceMidi();
        return;
    }
    OpenMidiOutput();
    if (MidiReady == Off) {
        ThePlatform().Messages.Show(LanguageText(TextMidiSwitchFailed), ButtonOK);
        return;
    }
    wish = On;
    PlayTestChord(0, TestLevel);
}

} // namespace

void OpenMidiOutput() {
    if (TryOpenMidiOutput() != 0)
        ThePlatform().Messages.Show(LanguageText(TextMidiOutputFailed), ButtonOK);
}

void OpenMidiOutputAtStart() {
    if (MidiInPanels == Off && MidiInTraining == Off)
        return;
    if (TryOpenMidiOutput() != 0)
        ShowStatus(LanguageText(TextMidiOutputFailed));
}

void RefreshMidiDevices() {
    const auto before = lstMidiDevice;
    if (before.empty())
        return;
    FillMidiDevices(lstMidiDevice);
    if (MidiDeviceIndex < 0 || static_cast<std::size_t>(MidiDeviceIndex) >= before.size())
        return;
    const MidiDevice& chosen = before[static_cast<std::size_t>(MidiDeviceIndex)];
    const auto same = [&chosen](const MidiDevice& device) {
        return chosen.Id == MidiOutput::Mapper ? device.Id == chosen.Id : device.Name == chosen.Name;
    };
    const auto found = std::find_if(lstMidiDevice.begin(), lstMidiDevice.end(), same);
    MidiDeviceIndex = static_cast<Integer>(found == lstMidiDevice.end() ? -1 : found - lstMidiDevice.begin());
}

void ChooseMidiDevice(int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= lstMidiDevice.size())
        return;
    MidiDeviceIndex = static_cast<Integer>(index);
    MidiOpen(lstMidiDevice[static_cast<std::size_t>(index)].Id);
}

void ToggleMidiPanels() {
    ToggleWish(MidiInPanels);
}

void ToggleMidiTraining() {
    ToggleWish(MidiInTraining);
}

void PlayTestChord(int pitchOffset, int level) {
    PlayMidiChord(true, pitchOffset, level);
    timSoundsOff.Enabled = true;
}

void LoadMidiInstruments() {
    MidiInstrumentNames.clear();
    std::string text;
    if (ThePlatform().Files.ReadWhole(ProgramFolder() + "/config/genmidi.txt", text) != 0)
        return;
    std::size_t start = 0;
    while (start < text.size() && MidiInstrumentNames.size() < MostInstruments) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        std::string name = text.substr(start, end - start);
        if (name.ends_with('\r'))
            name.pop_back();
        MidiInstrumentNames.push_back(std::move(name));
        start = end + 1;
    }
}

void ChooseMidiInstrument(int row) {
    const int program = row - FirstInstrumentRow;
    if (program < 0 || static_cast<std::size_t>(program) >= MidiInstrumentNames.size())
        return;
    if (!MidiProbe()) {
        if (!instrumentFailureTold)
            ThePlatform().Messages.Show(LanguageText(TextMidiOutputFailed), ButtonOK);
        instrumentFailureTold = true;
        return;
    }
    instrumentFailureTold = false;
    MidiInstrument = static_cast<Integer>(program);
    for (const int channel : {0, 1})
        MidiControl(channel, MidiAllSoundOff, 0);
    for (const int channel : {0, 1})
        MidiProgram(channel, 0, program);
    PlayTestChord(InstrumentPitchOffset, 0);
}

void ResetMidiSwitches() {
    MidiInstrumentNames.clear();
    MidiInstrument = 0;
    instrumentFailureTold = false;
    timSoundsOff.Handler = [] {
        timSoundsOff.Enabled = false;
        MidiBothOff();
    };
}

} // namespace pulselark
