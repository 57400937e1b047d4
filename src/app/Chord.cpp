#include "app/Commands.h"
#include "feedback/MIDI_OUT.h"
#include "feedback/MidiSwitches.h"
#include "persistence/OpenSession.h"
#include "platform/midi/Synthesizer.h"
#include "platform/system/ConsolePlatform.h"
#include "session/AnalysisBuffers.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/Replay.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <vector>

namespace pulselark {

namespace {

struct ChordOptions {
    std::string Wave;
    std::string Session;
    Long From = 0;
    Long Seconds = 0;
};

bool ParseSeconds(const std::string& text, Long& seconds) {
    const auto [rest, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
    return error == std::errc() && rest == text.data() + text.size() && seconds >= 1;
}

std::optional<ChordOptions> ParseOptions(Arguments arguments) {
    ChordOptions options;
    for (std::size_t i = 0; i + 1 < arguments.size(); i += 2) {
        const std::string& value = arguments[i + 1];
        if (arguments[i] == "--render")
            options.Wave = value;
        else if (arguments[i] == "--session")
            options.Session = value;
        else if (!(arguments[i] == "--from" && ParseSeconds(value, options.From)) &&
                 !(arguments[i] == "--seconds" && ParseSeconds(value, options.Seconds)))
            return std::nullopt;
    }
    if (arguments.size() % 2 != 0 || options.Wave.empty() || options.Session.empty() || options.From == 0 ||
        options.Seconds == 0)
        return std::nullopt;
    return options;
}

// The synthesizer as the program's output, without a sound device: it is asked for the samples of each
// second.
class RenderedOutput final : public MidiOutput {
public:
    explicit RenderedOutput(Synthesizer& synthesizer) : synthesizer_(synthesizer) {}
    int DeviceCount() override { return 0; }
    std::optional<std::string> DeviceName(int /*id*/) override { return std::nullopt; }
    Integer Open(int /*id*/) override { return synthesizer_.Load(); }
    Integer Close() override { return 0; }
    Integer Send(std::uint32_t word) override {
        synthesizer_.Send(word);
        return 0;
    }
    void Silence() override { synthesizer_.Silence(); }
    std::string ErrorText(Integer code) override { return FailureText(code); }

private:
    Synthesizer& synthesizer_;
};

void AppendLittleEndian(std::string& bytes, std::uint32_t value, int count) {
    for (int i = 0; i < count; ++i)
        bytes.push_back(static_cast<char>((value >> (8 * i)) & 0xFFU));
}

// A WAVE file of 16-bit samples in two channels (RIFF, format 1).
std::string WaveFile(const std::vector<float>& interleaved) {
    constexpr std::uint32_t Channels = 2, SampleBytes = 2;
    const auto dataBytes = static_cast<std::uint32_t>(interleaved.size()) * SampleBytes;
    std::string bytes = "RIFF";
    AppendLittleEndian(bytes, 36 + dataBytes, 4);
    bytes += "WAVEfmt ";
    AppendLittleEndian(bytes, 16, 4);
    AppendLittleEndian(bytes, 1, 2);
    AppendLittleEndian(bytes, Channels, 2);
    AppendLittleEndian(bytes, Synthesizer::SampleRate, 4);
    AppendLittleEndian(bytes, Synthesizer::SampleRate * Channels * SampleBytes, 4);
    AppendLittleEndian(bytes, Channels * SampleBytes, 2);
    AppendLittleEndian(bytes, 8 * SampleBytes, 2);
    bytes += "data";
    AppendLittleEndian(bytes, dataBytes, 4);
    for (const float sample : interleaved) {
        const auto level = static_cast<std::int32_t>(std::lrint(std::clamp(sample, -1.0F, 1.0F) * 32767.0F));
        AppendLittleEndian(bytes, static_cast<std::uint32_t>(level), 2);
    }
    return bytes;
}

// Plays the session up to the wanted seconds unheard, so that the analyses stand where a listener finds them,
// then renders one second of sound after each tick.
std::vector<float> RenderSeconds(Synthesizer& synthesizer, const ChordOptions& options) {
    constexpr std::size_t SecondSize = 2 * std::size_t{Synthesizer::SampleRate};
    std::vector<float> sound;
    MidiInPanels = Off;
    while (timReplay.Enabled && SessionTick < options.From + options.Seconds) {
        const Long second = SessionTick;
        MidiInPanels = ToBoolean(second >= options.From);
        ReplayTick();
        if (MidiInPanels == Off || SessionTick == second)
            continue;
        sound.resize(sound.size() + SecondSize);
        synthesizer.Render(std::span(sound).last(SecondSize));
    }
    return sound;
}

} // namespace

int RunChord(Arguments arguments) {
    const auto options = ParseOptions(arguments);
    if (!options)
        return Complain("usage: pulselark chord --render FILE.wav --session FILE.hti --from S --seconds N",
                        ExitUsage);
    Synthesizer synthesizer;
    RenderedOutput output(synthesizer);
    const ConsolePlatform platform(output);
    SetStartValues();
    ResetMainControls();
    ResetMidiOutput();
    if (const Integer failure = synthesizer.Load(); failure != 0)
        return Complain("the sound font of the built-in synthesizer could not be loaded (failure " +
                            std::to_string(failure) + "); install the package timgm6mb-soundfont",
                        ExitFailure);
    OpenSessionFile(options->Session);
    if (LastFileResult != FileSuccess)
        return ComplainOfFile(options->Session, LastFileResult, LastFileLine);
    if (options->From >= SessionSeconds)
        return Complain(options->Session + ": its replay ends before second " + std::to_string(options->From),
                        ExitFailure);
    FillMidiDevices(lstMidiDevice);
    OpenMidiOutput();
    const Integer failure =
        ThePlatform().Files.ReplaceWhole(options->Wave, WaveFile(RenderSeconds(synthesizer, *options)));
    return failure == 0 ? ExitSuccess : ComplainOfFile(options->Wave, failure, 0);
}

} // namespace pulselark
