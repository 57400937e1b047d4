#include "platform/MidiOutput.h"

namespace pulselark {

namespace {

class SilentMidiOutput final : public MidiOutput {
public:
    int DeviceCount() override { return 0; }
    std::optional<std::string> DeviceName(int /*id*/) override { return std::nullopt; }
    Integer Open(int /*id*/) override { return FailureDeviceIO; }
    Integer Close() override { return 0; }
    Integer Send(std::uint32_t /*word*/) override { return FailureDeviceIO; }
    void Silence() override {}
    std::string ErrorText(Integer code) override { return FailureText(code); }
};

} // namespace

MidiOutput& NoMidiOutput() {
    static SilentMidiOutput output;
    return output;
}

} // namespace pulselark
