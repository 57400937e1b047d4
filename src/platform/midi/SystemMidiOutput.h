#pragma once

#include "platform/MidiOutput.h"

#include <memory>
#include <vector>

namespace pulselark {

/// The MIDI output of the machine. The mapper is the built-in synthesizer. The devices are the ports of the
/// system's sequencer and, last, a port "PulseLark" of our own to which other programs can connect. A machine
/// without a sequencer has no devices.
class SystemMidiOutput final : public MidiOutput {
public:
    SystemMidiOutput();
    ~SystemMidiOutput() override;

    int DeviceCount() override;
    std::optional<std::string> DeviceName(int id) override;
    Integer Open(int id) override;
    Integer Close() override;
    Integer Send(std::uint32_t word) override;
    void Silence() override;
    std::string ErrorText(Integer code) override;

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace pulselark
