#include "platform/midi/SystemMidiOutput.h"

#include "platform/midi/MidiWord.h"
#include "platform/midi/Synthesizer.h"

#include <RtMidi.h>
#include <array>
#include <filesystem>

namespace pulselark {

namespace {

constexpr const char* PortName = "PulseLark";

// The library throws where there is no sequencer, and both it and the one below it print what they miss; so
// the device is looked for first.
std::unique_ptr<RtMidiOut> MakeSequencer(bool& failed) {
    std::error_code error;
    if (!std::filesystem::exists("/dev/snd/seq", error))
        return nullptr;
    try {
        auto sequencer = std::make_unique<RtMidiOut>(RtMidi::LINUX_ALSA, PortName);
        // With a listener the library throws no more, whatever goes wrong.
        sequencer->setErrorCallback(
            [](RtMidiError::Type, const std::string&, void* what) { *static_cast<bool*>(what) = true; },
            &failed);
        return sequencer;
    } catch (const RtMidiError&) {
        return nullptr;
    }
}

} // namespace

struct SystemMidiOutput::Parts {
    enum class Open { Nothing, Synthesizer, Sequencer };

    Synthesizer Synth;
    std::unique_ptr<RtMidiOut> Sequencer;
    std::vector<std::string> Ports; // as the devices were counted last; our own port is none of them
    Open Now = Open::Nothing;
    bool Failed = false; // the library has told of an error since this was cleared

    // Where a port of the list stands by now: devices come and go, and their numbers move up.
    std::optional<unsigned> Find(const std::string& port) const {
        for (unsigned place = 0; place < Sequencer->getPortCount(); ++place) {
            if (Sequencer->getPortName(place) == port)
                return place;
        }
        return std::nullopt;
    }
};

SystemMidiOutput::SystemMidiOutput() : parts_(std::make_unique<Parts>()) {}

SystemMidiOutput::~SystemMidiOutput() {
    Close();
}

int SystemMidiOutput::DeviceCount() {
    if (parts_->Sequencer == nullptr)
        parts_->Sequencer = MakeSequencer(parts_->Failed);
    if (parts_->Sequencer == nullptr)
        return 0;
    parts_->Ports.clear();
    const unsigned count = parts_->Sequencer->getPortCount();
    for (unsigned port = 0; port < count; ++port)
        parts_->Ports.push_back(parts_->Sequencer->getPortName(port));
    return static_cast<int>(count) + 1;
}

std::optional<std::string> SystemMidiOutput::DeviceName(int id) {
    const auto ports = static_cast<int>(parts_->Ports.size());
    if (id < 0 || id > ports || parts_->Sequencer == nullptr)
        return std::nullopt;
    return id == ports ? PortName : parts_->Ports[static_cast<std::size_t>(id)];
}

Integer SystemMidiOutput::Open(int id) {
    Close();
    if (id == Mapper) {
        const Integer failure = parts_->Synth.StartPlaying();
        if (failure == 0)
            parts_->Now = Parts::Open::Synthesizer;
        return failure;
    }
    if (!DeviceName(id))
        return FailureIndexOutOfRange;
    parts_->Failed = false;
    if (static_cast<std::size_t>(id) == parts_->Ports.size()) {
        parts_->Sequencer->openVirtualPort(PortName);
    } else {
        const auto port = parts_->Find(parts_->Ports[static_cast<std::size_t>(id)]);
        if (!port)
            return FailureDeviceIO;
        parts_->Sequencer->openPort(*port, PortName);
    }
    if (parts_->Failed)
        return FailureDeviceIO;
    parts_->Now = Parts::Open::Sequencer;
    return 0;
}

Integer SystemMidiOutput::Close() {
    Silence();
    if (parts_->Now == Parts::Open::Synthesizer)
        parts_->Synth.StopPlaying();
    if (parts_->Now == Parts::Open::Sequencer)
        parts_->Sequencer->closePort();
    parts_->Now = Parts::Open::Nothing;
    return 0;
}

Integer SystemMidiOutput::Send(std::uint32_t word) {
    if (parts_->Now == Parts::Open::Synthesizer) {
        parts_->Synth.Send(word);
        return 0;
    }
    if (parts_->Now == Parts::Open::Nothing)
        return FailureDeviceIO;
    const MidiBytes bytes(word);
    const std::array<unsigned char, 3> message{bytes.Status, bytes.Data1, bytes.Data2};
    parts_->Failed = false;
    parts_->Sequencer->sendMessage(message.data(), static_cast<std::size_t>(bytes.Size()));
    return parts_->Failed ? Integer{FailureDeviceIO} : Integer{0};
}

void SystemMidiOutput::Silence() {
    if (parts_->Now == Parts::Open::Synthesizer)
        parts_->Synth.Silence();
    if (parts_->Now != Parts::Open::Sequencer)
        return;
    for (std::uint32_t channel = 0; channel < 16; ++channel) {
        for (const std::uint32_t controller : {120U, 123U})
            Send(176 + channel + 256 * controller);
    }
}

std::string SystemMidiOutput::ErrorText(Integer code) {
    return FailureText(code);
}

} // namespace pulselark
