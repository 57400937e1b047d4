#include "SoundBench.h"

#include "feedback/MIDI_OUT.h"
#include "feedback/MidiChord.h"
#include "platform/Platform.h"
#include "platform/midi/Synthesizer.h"
#include "platform/system/ConsolePlatform.h"
#include "session/AnalysisBuffers.h"
#include "session/MainBuffers.h"

#include <array>
#include <cstdint>

namespace pulselark {

namespace {

// The probe, notes off on both channels, and a chord on d' of medium loudness.
constexpr std::array<std::uint32_t, 13> ChordWords{0x00013290, 0x000078B0, 0x00007BB0, 0x000078B1, 0x00007BB1,
                                                   0x00123E90, 0x00123E91, 0x000C3990, 0x00124290, 0x00124590,
                                                   0x000C3991, 0x00124291, 0x00124591};

Synthesizer& LoadedSynthesizer() {
    static Synthesizer synthesizer;
    return synthesizer;
}

class SynthesizerOutput final : public MidiOutput {
public:
    int DeviceCount() override { return 0; }
    std::optional<std::string> DeviceName(int /*id*/) override { return std::nullopt; }
    Integer Open(int /*id*/) override { return 0; }
    Integer Close() override { return 0; }
    Integer Send(std::uint32_t word) override {
        LoadedSynthesizer().Send(word);
        return 0;
    }
    void Silence() override {}
    std::string ErrorText(Integer code) override { return FailureText(code); }
};

// What the sound device takes between two seconds, so that voices come to their end. Nobody waits for it.
void TakeSound(benchmark::State& state) {
    static std::array<float, 2048> sound;
    state.PauseTiming();
    LoadedSynthesizer().Render(sound);
    state.ResumeTiming();
}

void Chord(benchmark::State& state) {
    const Platform& before = ThePlatform();
    SynthesizerOutput output;
    {
        const ConsolePlatform platform(output);
        AnalysisSecond = 100;
        PeakIndexA = 56;
        CoherenceAvgA[101] = 0.04986F;
        MidiReady = On;
        for (auto _ : state) {
            PlayMidiChord(false, 0, 0);
            TakeSound(state);
        }
        ResetMidiChord();
        MidiReady = Off;
    }
    InstallPlatform(before);
}

void ChordFloor(benchmark::State& state) {
    for (auto _ : state) {
        for (const std::uint32_t word : ChordWords)
            LoadedSynthesizer().Send(word);
        TakeSound(state);
    }
}

} // namespace

void RegisterSound() {
    if (LoadedSynthesizer().Load() != 0)
        return;
    benchmark::RegisterBenchmark("Chord", Chord);
    benchmark::RegisterBenchmark("ChordFloor", ChordFloor);
}

std::vector<RatioRow> SoundRows() {
    if (LoadedSynthesizer().Load() != 0)
        return {};
    return {{"chord of a second / bare synthesizer", "Chord", "ChordFloor", 1.3}};
}

} // namespace pulselark
