#include "analysis/GCoherence.h"
#include "app/Commands.h"
#include "app/EventTrace.h"
#include "feedback/MIDI_OUT.h"
#include "feedback/ModeSelector.h"
#include "persistence/OpenSession.h"
#include "platform/ProgramFolder.h"
#include "platform/system/ConsolePlatform.h"
#include "platform/system/FindProgramFolder.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/Replay.h"
#include "session/Settings.h"
#include "session/StartUp.h"

#include <charconv>
#include <cstdio>
#include <optional>

namespace pulselark {

namespace {

struct TraceOptions {
    std::string File;
    int Mode = -1; // outside training
    int Interval = 16;
    int Averaging = 0;
    bool Midi = false;
    bool AppLink = false;
};

bool Take(const std::string& text, int least, int most, int& value) {
    int number = 0;
    const auto [rest, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || rest != text.data() + text.size() || number < least || number > most)
        return false;
    value = number;
    return true;
}

bool TakeOption(const std::string& name, const std::string& value, TraceOptions& options) {
    constexpr int LeastInterval = 4;
    constexpr int MostInterval = 61;
    if (name == "--mode")
        return Take(value, 0, ModeCount - 1, options.Mode);
    if (name == "--interval")
        return Take(value, LeastInterval, MostInterval, options.Interval);
    return name == "--averaging" && Take(value, 0, SecondsBufferSize, options.Averaging);
}

std::optional<TraceOptions> ParseOptions(Arguments arguments) {
    TraceOptions options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument == "--midi")
            options.Midi = true;
        else if (argument == "--app-link")
            options.AppLink = true;
        else if (!argument.starts_with("--") && options.File.empty())
            options.File = argument;
        else if (i + 1 >= arguments.size() || !TakeOption(argument, arguments[++i], options))
            return std::nullopt;
    }
    if (options.File.empty())
        return std::nullopt;
    return options;
}

void ApplyOptions(const TraceOptions& options) {
    MovingAverageWidth = static_cast<Integer>(options.Averaging);
    DynamicIndexInterval = static_cast<Integer>(options.Interval);
    TrainingActive = ToBoolean(options.Mode >= 0);
    AppLinkOnly = ToBoolean(options.AppLink);
    MidiInTraining = MidiInPanels = ToBoolean(options.Midi);
}

} // namespace

int RunTrace(Arguments arguments) {
    const auto options = ParseOptions(arguments);
    if (!options) {
        return Complain("usage: pulselark trace FILE.hti [--mode 0..3] [--interval 4..61] [--averaging N] "
                        "[--midi] [--app-link]",
                        ExitUsage);
    }
    const ConsolePlatform platform;
    SetProgramFolder(FindProgramFolder());
    InitApplication(false);
    ApplyOptions(*options);
    bool written = true;
    EventTrace trace(
        [&written](const std::string& line) {
            written = std::fwrite(line.data(), 1, line.size(), stdout) == line.size() && written;
        },
        options->Midi);
    MidiReady = ToBoolean(options->Midi);
    OpenSessionFile(options->File);
    if (LastFileResult != FileSuccess)
        return ComplainOfFile(options->File, LastFileResult, LastFileLine);
    if (options->Mode >= 0)
        RunModeFromReplay(options->Mode);
    trace.WriteChanges();
    while (timReplay.Enabled) {
        ReplayTick();
        trace.WriteChanges();
    }
    written = std::fflush(stdout) == 0 && written;
    return written ? ExitSuccess : Complain("standard output: the trace could not be written", ExitFailure);
}

} // namespace pulselark
