#include "feedback/MIDI_OUT.h"

#include "platform/Platform.h"
#include "session/LanguageTable.h"
#include "session/TextNumbers.h"

namespace pulselark {

Long MidiHandle = 0;
Boolean MidiReady = Off;
Integer MidiDeviceIndex = 0;
std::vector<MidiDevice> lstMidiDevice;

void FillMidiDevices(std::vector<MidiDevice>& list) {
    list.clear();
    list.push_back({LanguageText(TextBuiltInSynthesizer), MidiOutput::Mapper});
    MidiOutput& output = ThePlatform().MidiOutput;
    for (int id = 0; id < output.DeviceCount(); ++id) {
        if (auto name = output.DeviceName(id))
            list.push_back({std::move(*name), id});
    }
}

Integer MidiTryOpen(int deviceId) {
    MidiClose();
    const Integer failure = ThePlatform().MidiOutput.Open(deviceId);
    MidiHandle = failure == 0 ? 1 : 0;
    return failure;
}

bool MidiOpen(int deviceId) {
    const Integer failure = MidiTryOpen(deviceId);
    if (failure != 0)
        MidiError(failure);
    return failure == 0;
}

void MidiClose() {
    if (MidiHandle == 0)
        return;
    MidiHandle = 0;
    const Integer failure = ThePlatform().MidiOutput.Close();
    if (failure != 0)
        MidiError(failure);
}

Integer MidiWord(int status, int data1, int data2) {
    return ThePlatform().MidiOutput.Send(static_cast<std::uint32_t>(status + 256 * data1 + 65536 * data2));
}

bool MidiProbe() {
    constexpr int NoteOn = 144;
    constexpr int Note = 50;
    return MidiWord(NoteOn, Note, 1) <= 0;
}

void MidiError(Integer code) {
    const Platform& platform = ThePlatform();
    platform.Messages.Show(platform.MidiOutput.ErrorText(code), ButtonOK);
}

void SilenceMidi() {
    if (MidiHandle != 0)
        ThePlatform().MidiOutput.Silence();
}

void ResetMidiOutput() {
    MidiHandle = 0;
    MidiReady = Off;
    MidiDeviceIndex = 0;
    lstMidiDevice.clear();
}

} // namespace pulselark
