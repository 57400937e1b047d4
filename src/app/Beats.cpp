#include "analysis/BeatDetector.h"
#include "analysis/IntervalSeries.h"
#include "analysis/Resampler.h"
#include "app/Commands.h"
#include "persistence/SessionFile.h"
#include "persistence/WfdbRecord.h"
#include "platform/Platform.h"
#include "platform/system/ConsolePlatform.h"
#include "session/MainBuffers.h"

#include <cstdio>
#include <optional>
#include <vector>

namespace pulselark {

namespace {

struct BeatsOptions {
    std::string File;
    bool ChannelB = false;
};

std::optional<BeatsOptions> ParseOptions(Arguments arguments) {
    BeatsOptions options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == "--channel" && i + 1 < arguments.size()) {
            const std::string& channel = arguments[++i];
            if (channel != "A" && channel != "B")
                return std::nullopt;
            options.ChannelB = channel == "B";
        } else if (!arguments[i].starts_with("--") && options.File.empty()) {
            options.File = arguments[i];
        } else {
            return std::nullopt;
        }
    }
    if (options.File.empty())
        return std::nullopt;
    return options;
}

RecordOutcome ReadSession(const BeatsOptions& options, std::vector<float>& samples) {
    SetStartValues();
    std::string bytes;
    if (const Integer failure = ThePlatform().Files.ReadWhole(options.File, bytes); failure != 0)
        return {{failure, 0}, {}};
    if (const FileOutcome outcome = ReadSessionText(bytes); outcome.Number != 0)
        return {outcome, {}};
    if (options.ChannelB && ChannelMode == 2)
        return {{FailureIndexOutOfRange, 0}, "it was recorded without a channel B"};
    const EcgBuffer& ecg = options.ChannelB ? EcgB : EcgA;
    const auto count = static_cast<std::ptrdiff_t>(SessionSeconds) * SamplesPerSecond;
    samples.assign(ecg.begin(), ecg.begin() + count);
    return {};
}

RecordOutcome ReadRecord(const std::string& headerFile, bool channelB, std::vector<float>& samples) {
    WfdbHeader header;
    std::vector<float> recorded;
    RecordOutcome outcome = ReadWfdbRecord(headerFile, channelB ? 1 : 0, header, recorded);
    if (outcome.Number != 0)
        return outcome;
    Resampler resampler(header.Rate);
    for (const float sample : recorded)
        resampler.Push(sample, samples);
    resampler.Flush(samples);
    return {};
}

void Print(IntervalSeries& series) {
    while (const auto beat = series.Next())
        std::printf("%.4f\t%.4f\t%.4f\t%c\n", beat->Time, static_cast<double>(beat->Raw),
                    static_cast<double>(beat->Corrected), static_cast<char>(beat->Kind));
}

} // namespace

int RunBeats(Arguments arguments) {
    const auto options = ParseOptions(arguments);
    if (!options)
        return Complain("usage: pulselark beats FILE [--channel A|B]", ExitUsage);
    const ConsolePlatform platform;
    std::vector<float> samples;
    const std::string header = WfdbHeaderFile(options->File);
    const RecordOutcome outcome =
        header.empty() ? ReadSession(*options, samples) : ReadRecord(header, options->ChannelB, samples);
    if (outcome.Number != 0)
        return ComplainOfFile(options->File, outcome.Number, outcome.Line, outcome.Why);
    BeatDetector detector;
    IntervalSeries series;
    for (const float sample : samples) {
        if (const auto beat = detector.Push(sample))
            series.Add(*beat);
        Print(series);
    }
    while (const auto beat = detector.Flush())
        series.Add(*beat);
    series.Finish();
    Print(series);
    return ExitSuccess;
}

} // namespace pulselark
