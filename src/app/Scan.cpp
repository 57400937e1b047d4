#include "analysis/CoherenceBins.h"
#include "app/Commands.h"
#include "base/Text.h"
#include "persistence/OpenSession.h"
#include "persistence/SaveScan.h"
#include "persistence/ScanFile.h"
#include "platform/Platform.h"
#include "platform/ProgramFolder.h"
#include "platform/system/ConsolePlatform.h"
#include "platform/system/FindProgramFolder.h"
#include "quickscan/QsAnalysis.h"
#include "quickscan/QsPage.h"
#include "quickscan/QuickScan.h"
#include "session/LanguageTable.h"
#include "session/MainControls.h"
#include "session/Replay.h"
#include "session/StartUp.h"

#include <charconv>
#include <cstdio>
#include <optional>
#include <vector>

namespace pulselark {

namespace {

struct ScanOptions {
    std::vector<std::string> Files;
    std::string ScanFile, Picture, Paper; // where they go; empty: nowhere
    bool Training = false;
    bool ChannelB = false;
    bool Letter = false;
    Integer Language = 0;
    Integer Smoothing = 4;
};

bool TakeWhole(const std::string& text, Integer most, Integer& value) {
    const auto [rest, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && rest == text.data() + text.size() && value >= 0 && value <= most;
}

bool TakeOption(const std::string& name, const std::string& value, ScanOptions& options) {
    if (name == "--language")
        return TakeWhole(value, LanguageCount - 1, options.Language);
    if (name == "--smoothing")
        return TakeWhole(value, QsSmoothingMost, options.Smoothing);
    if (name == "--channel") {
        options.ChannelB = value == "B";
        return value == "A" || value == "B";
    }
    if (name == "--paper") {
        options.Letter = value == "Letter";
        return value == "A4" || value == "Letter";
    }
    std::string* const place = name == "--plx"   ? &options.ScanFile
                               : name == "--png" ? &options.Picture
                               : name == "--pdf" ? &options.Paper
                                                 : nullptr;
    if (place == nullptr || value.empty())
        return false;
    *place = value;
    return true;
}

std::optional<ScanOptions> ParseOptions(Arguments arguments) {
    ScanOptions options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument == "--training")
            options.Training = true;
        else if (!argument.starts_with("--"))
            options.Files.push_back(argument);
        else if (i + 1 >= arguments.size() || !TakeOption(argument, arguments[++i], options))
            return std::nullopt;
    }
    const bool writes = !options.ScanFile.empty() || !options.Picture.empty() || !options.Paper.empty();
    if (options.Files.empty() || (writes && options.Files.size() > 1))
        return std::nullopt;
    return options;
}

std::string JsonText(const std::string& text) {
    std::string out = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') {
            out += '\\';
            out += c;
        } else if (static_cast<unsigned char>(c) < 0x20) {
            constexpr const char* Digits = "0123456789abcdef";
            out += "\\u00";
            out += Digits[static_cast<unsigned char>(c) >> 4U];
            out += Digits[static_cast<unsigned char>(c) & 0xFU];
        } else {
            out += c;
        }
    }
    return out + '"';
}

// The shortest digits that read back as the same number.
std::string JsonNumber(double value) {
    char digits[40];
    const auto result = std::to_chars(digits, digits + sizeof digits, value);
    return {digits, result.ptr};
}

void AppendChannel(std::string& out, const ScanChannel& channel, double score) {
    out += std::string(",\"") + channel.Name + "\":{\"ScanPower1\":" + JsonNumber(channel.Power1);
    out += ",\"ScanPower2\":" + JsonNumber(channel.Power2);
    out += ",\"ScanPowerRatio\":" + JsonNumber(channel.PowerRatio);
    out += ",\"MeanHeartRate\":" + JsonNumber(channel.MeanHeartRate);
    out += ",\"ScanPeak\":" + std::to_string(channel.Peak) + ",\"CohScoreBins\":[";
    for (int bin = 1; bin <= 10; ++bin) {
        if (bin > 1)
            out += ',';
        out += std::to_string(channel.Bins[bin]);
    }
    out += "],\"Score\":" + JsonNumber(score);
    out += ",\"QsSpectrumSize\":" + std::to_string(QsSpectrumSize) + "}";
}

// Measures each channel that the session has, the one to be shown first, and leaves that one on show.
std::string Measure(const std::string& file, bool channelB) {
    double scoreA = 0;
    double scoreB = 0;
    QuickScanFresh = ToBoolean(!channelB);
    FinishQuickScan();
    (channelB ? scoreB : scoreA) = DynamicIndex;
    if (ChannelBPresent != Off) {
        QuickScanFresh = ToBoolean(channelB);
        QsMeasure();
        (channelB ? scoreA : scoreB) = DynamicIndex;
        QuickScanFresh = ToBoolean(!channelB);
    }
    std::string out = "{\"file\":" + JsonText(file);
    out += ",\"SessionSeconds\":" + std::to_string(SessionSeconds);
    out += ",\"ChannelMode\":" + std::to_string(ChannelMode);
    AppendChannel(out, ScanA, scoreA);
    if (ChannelBPresent != Off)
        AppendChannel(out, ScanB, scoreB);
    return out + "}\n";
}

int WriteScanFile(const ScanOptions& options) {
    if (options.ScanFile.empty())
        return ExitSuccess;
    if (options.Training)
        MeasureTrainingScan();
    const Integer failure = ThePlatform().Files.ReplaceWhole(
        options.ScanFile, options.Training ? TrainingScanText() : ScanText());
    return failure == 0 ? ExitSuccess : ComplainOfFile(options.ScanFile, failure, 0);
}

int WritePage(const std::string& name, PageWriter writer) {
    if (name.empty())
        return ExitSuccess;
    if (writer == nullptr)
        return Complain("this program was built without pages", ExitFailure);
    const Integer failure = writer(name);
    return failure == 0 ? ExitSuccess : ComplainOfFile(name, failure, 0);
}

int ScanOne(const std::string& file, const ScanOptions& options, const PageWriters& writers) {
    InitApplication(false);
    ResetCoherenceBins();
    ResetQsAnalysis();
    LanguageIndex = options.Language;
    QsSmoothing = options.Smoothing;
    OpenSessionFile(file);
    if (LastFileResult != FileSuccess)
        return ComplainOfFile(file, LastFileResult, LastFileLine);
    EndReplay();
    if (SessionSeconds <= ScanMinimumSeconds) {
        const bool usable = SessionSeconds > ScanSettlingSeconds;
        return Complain(file + ": " + LanguageText(usable ? TextScanTooShort : TextNothingToDo),
                        ExitTooShort);
    }
    if (options.ChannelB && ChannelBPresent == Off)
        return Complain(file + ": " + LanguageText(TextScanNoChannelB), ExitFailure);
    const std::string line = Measure(file, options.ChannelB);
    if (std::fwrite(line.data(), 1, line.size(), stdout) != line.size() || std::fflush(stdout) != 0)
        return Complain("standard output: the figures could not be written", ExitFailure);
    for (const int result : {WriteScanFile(options), WritePage(options.Picture, writers.Picture),
                             WritePage(options.Paper, options.Letter ? writers.Letter : writers.Paper)}) {
        if (result != ExitSuccess)
            return result;
    }
    return ExitSuccess;
}

} // namespace

int RunScan(Arguments arguments, const PageWriters& writers) {
    const auto options = ParseOptions(arguments);
    if (!options) {
        return Complain("usage: pulselark scan FILE.hti... [--training] [--channel A|B] [--language N] "
                        "[--smoothing 0..16]; with one file also [--plx OUT.plx] [--pdf OUT.pdf [--paper "
                        "A4|Letter]] [--png OUT.png]",
                        ExitUsage);
    }
    const ConsolePlatform platform;
    SetProgramFolder(FindProgramFolder());
    int result = ExitSuccess;
    for (const std::string& file : options->Files) {
        const int one = ScanOne(file, *options, writers);
        if (result == ExitSuccess || one == ExitFailure)
            result = one == ExitSuccess ? result : one;
    }
    return result;
}

} // namespace pulselark
