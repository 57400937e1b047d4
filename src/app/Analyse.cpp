#include "analysis/GCoherence.h"
#include "app/Commands.h"
#include "persistence/OpenSession.h"
#include "persistence/SessionFile.h"
#include "platform/Platform.h"
#include "platform/system/ConsolePlatform.h"
#include "session/AnalysisBuffers.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/Replay.h"

#include <charconv>
#include <cstdio>
#include <optional>

namespace pulselark {

namespace {

struct AnalyseOptions {
    std::string File;
    std::string Out; // empty: standard output
    Integer Averaging = 0;
};

std::optional<Integer> AveragingWidth(const std::string& text) {
    int width = 0;
    const auto [rest, error] = std::from_chars(text.data(), text.data() + text.size(), width);
    if (error != std::errc() || rest != text.data() + text.size() || width < 0 || width > LongestSession)
        return std::nullopt;
    return static_cast<Integer>(width);
}

std::optional<AnalyseOptions> ParseOptions(Arguments arguments) {
    AnalyseOptions options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        const bool hasValue = i + 1 < arguments.size();
        if (argument == "--averaging" && hasValue) {
            const auto width = AveragingWidth(arguments[++i]);
            if (!width)
                return std::nullopt;
            options.Averaging = *width;
        } else if (argument == "--out" && hasValue) {
            options.Out = arguments[++i];
        } else if (!argument.starts_with("--") && options.File.empty()) {
            options.File = argument;
        } else {
            return std::nullopt;
        }
    }
    if (options.File.empty())
        return std::nullopt;
    return options;
}

// Floats with 9 significant digits and doubles with 17 read back as the same bits.
void AppendValue(std::string& out, double value, int digits) {
    char text[40];
    const auto result = std::to_chars(text, text + sizeof text, value, std::chars_format::general, digits);
    out.push_back(',');
    out.append(text, result.ptr);
}

struct ChannelNumbers {
    const SecondsBuffer &Coherence, &CoherenceAvg, &IbiAvg;
    const Integer& PeakIndex;
    const double &SpectrumNorm, &HrvLf, &HrvHf;
};

void AppendChannel(std::string& out, const ChannelNumbers& channel, Long second) {
    AppendValue(out, channel.Coherence.at(second + 1), 9);
    AppendValue(out, channel.CoherenceAvg.at(second + 1), 9);
    out.push_back(',');
    out += std::to_string(channel.PeakIndex);
    AppendValue(out, channel.SpectrumNorm, 17);
    AppendValue(out, channel.HrvLf, 17);
    AppendValue(out, channel.HrvHf, 17);
    AppendValue(out, channel.IbiAvg.at(second), 9);
}

// Replays the loaded session from its first second and writes one line a second.
std::string ReplayedNumbers() {
    const ChannelNumbers channelA{CoherenceA,    CoherenceAvgA, IbiAvgA, PeakIndexA,
                                  SpectrumNormA, HrvLfA,        HrvHfA};
    const ChannelNumbers channelB{CoherenceB,    CoherenceAvgB, IbiAvgB, PeakIndexB,
                                  SpectrumNormB, HrvLfB,        HrvHfB};
    std::string out = "second,CoherenceA,CoherenceAvgA,PeakIndexA,SpectrumNormA,HrvLfA,HrvHfA,IbiAvgA,"
                      "CoherenceB,CoherenceAvgB,PeakIndexB,SpectrumNormB,HrvLfB,HrvHfB,IbiAvgB\n";
    while (timReplay.Enabled) {
        const Long second = SessionTick;
        ReplayTick();
        if (SessionTick == second)
            continue; // the replay has ended
        out += std::to_string(second);
        AppendChannel(out, channelA, second);
        AppendChannel(out, channelB, second);
        out.push_back('\n');
    }
    return out;
}

int WriteOut(const std::string& text, const std::string& name) {
    if (name.empty()) {
        const bool written =
            std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0;
        return written ? ExitSuccess
                       : Complain("standard output: the numbers could not be written", ExitFailure);
    }
    const Integer failure = ThePlatform().Files.ReplaceWhole(name, text);
    return failure == 0 ? ExitSuccess : ComplainOfFile(name, failure, 0);
}

} // namespace

int RunAnalyse(Arguments arguments) {
    const auto options = ParseOptions(arguments);
    if (!options)
        return Complain("usage: pulselark analyse FILE.hti [--averaging N] [--out FILE.csv]", ExitUsage);
    const ConsolePlatform platform;
    SetStartValues();
    ResetMainControls();
    MovingAverageWidth = options->Averaging;
    OpenSessionFile(options->File);
    if (LastFileResult != FileSuccess)
        return ComplainOfFile(options->File, LastFileResult, LastFileLine);
    return WriteOut(ReplayedNumbers(), options->Out);
}

} // namespace pulselark
