#include "platform/midi/Synthesizer.h"

#include "platform/midi/MidiWord.h"

#include <array>
#include <filesystem>
#include <fluidsynth.h>

namespace pulselark {

namespace {

// The General MIDI sound fonts of the system, the one that the package list names first.
constexpr std::array SoundFonts{"/usr/share/sounds/sf2/TimGM6mb.sf2", "/usr/share/sounds/sf2/default-GM.sf2",
                                "/usr/share/soundfonts/default.sf2"};

template <class T, void (*Delete)(T*)>
struct Deleter {
    void operator()(T* part) const { Delete(part); }
};

const char* FindSoundFont() {
    for (const char* name : SoundFonts) {
        std::error_code error;
        if (std::filesystem::exists(name, error))
            return name;
    }
    return nullptr;
}

} // namespace

struct Synthesizer::Parts {
    std::unique_ptr<fluid_settings_t, Deleter<fluid_settings_t, delete_fluid_settings>> Settings;
    std::unique_ptr<fluid_synth_t, Deleter<fluid_synth_t, delete_fluid_synth>> Synth;
    std::unique_ptr<fluid_audio_driver_t, Deleter<fluid_audio_driver_t, delete_fluid_audio_driver>> Driver;

    void OpenDriver() { Driver.reset(new_fluid_audio_driver(Settings.get(), Synth.get())); }
};

Synthesizer::Synthesizer() : parts_(std::make_unique<Parts>()) {}
Synthesizer::~Synthesizer() = default;

Integer Synthesizer::Load() {
    if (parts_->Synth != nullptr)
        return 0;
    const char* font = FindSoundFont();
    if (font == nullptr)
        return FailureFileNotFound;
    // The library's own words go to standard error; failures are told by the program.
    for (const int level : {FLUID_PANIC, FLUID_ERR, FLUID_WARN, FLUID_INFO})
        fluid_set_log_function(level, nullptr, nullptr);
    parts_->Settings.reset(new_fluid_settings());
    if (parts_->Settings == nullptr)
        return FailureOutOfMemory;
    fluid_settings_setnum(parts_->Settings.get(), "synth.sample-rate", SampleRate);
    fluid_settings_setnum(parts_->Settings.get(), "synth.gain", 0.6);
    parts_->Synth.reset(new_fluid_synth(parts_->Settings.get()));
    if (parts_->Synth == nullptr)
        return FailureOutOfMemory;
    if (fluid_synth_sfload(parts_->Synth.get(), font, 1) == FLUID_FAILED) {
        parts_->Synth.reset();
        return FailureDeviceIO;
    }
    return 0;
}

Integer Synthesizer::StartPlaying() {
    const Integer failure = Load();
    if (failure != 0 || parts_->Driver != nullptr)
        return failure;
    parts_->OpenDriver();
    // A sound server that keeps the device to itself is asked directly.
    if (parts_->Driver == nullptr) {
        fluid_settings_setstr(parts_->Settings.get(), "audio.driver", "pulseaudio");
        parts_->OpenDriver();
    }
    return parts_->Driver != nullptr ? Integer{0} : Integer{FailureDeviceIO};
}

void Synthesizer::StopPlaying() {
    Silence();
    parts_->Driver.reset();
}

void Synthesizer::Send(std::uint32_t word) {
    fluid_synth_t* synth = parts_->Synth.get();
    if (synth == nullptr)
        return;
    const MidiBytes bytes(word);
    switch (bytes.Kind()) {
    case 0x80:
        fluid_synth_noteoff(synth, bytes.Channel(), bytes.Data1);
        break;
    case 0x90:
        fluid_synth_noteon(synth, bytes.Channel(), bytes.Data1, bytes.Data2);
        break;
    case 0xB0:
        fluid_synth_cc(synth, bytes.Channel(), bytes.Data1, bytes.Data2);
        break;
    case 0xC0:
        fluid_synth_program_change(synth, bytes.Channel(), bytes.Data1);
        break;
    default:
        break;
    }
}

void Synthesizer::Silence() {
    if (parts_->Synth != nullptr)
        fluid_synth_all_sounds_off(parts_->Synth.get(), -1);
}

void Synthesizer::Render(std::span<float> interleaved) {
    const auto frames = static_cast<int>(interleaved.size() / 2);
    fluid_synth_write_float(parts_->Synth.get(), frames, interleaved.data(), 0, 2, interleaved.data(), 1, 2);
}

} // namespace pulselark
