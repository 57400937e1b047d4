#pragma once

#include "base/Numbers.h"

#include <cstdint>
#include <optional>
#include <string>

namespace pulselark {

/// Where MIDI messages go: numbered devices of which one is open at a time. Device -1 is the mapper, the
/// output that sounds on a machine where nothing is set up; devices 0 to `DeviceCount() - 1` are those of the
/// system. No call waits for a device. Results are 0, or the number of a failure whose text `ErrorText`
/// gives.
class MidiOutput {
public:
    static constexpr int Mapper = -1;

    virtual ~MidiOutput() = default;
    virtual int DeviceCount() = 0;
    /// The device's name; nothing if it cannot be asked.
    virtual std::optional<std::string> DeviceName(int id) = 0;
    virtual Integer Open(int id) = 0;
    virtual Integer Close() = 0;
    /// One message, packed as status + 256 * data 1 + 65536 * data 2. A data byte outside 0 to 127 is held to
    /// that range here, on the way to the device.
    virtual Integer Send(std::uint32_t word) = 0;
    /// Every note off and every sound off on all channels, if a device is open.
    virtual void Silence() = 0;
    virtual std::string ErrorText(Integer code) = 0;
};

/// The output of a machine without one: no device but the mapper, which cannot be opened.
MidiOutput& NoMidiOutput();

} // namespace pulselark
