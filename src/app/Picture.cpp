#include "app/Picture.h"

#include "analysis/ColourSchemes.h"
#include "app/WindowStart.h"
#include "feedback/ModeSelector.h"
#include "persistence/OpenSession.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/Replay.h"
#include "session/SessionTick.h"
#include "session/StartUp.h"
#include "workspace/WindowPlatform.h"
#include "workspace/frmMain.h"

#include <QApplication>

#include <charconv>
#include <cstdlib>
#include <optional>

namespace pulselark {

namespace {

struct PictureOptions {
    std::string File;
    std::string Out;
    int Second = 0;
    int Width = 1600;
    int Height = 1000;
    int Scheme = 0;
    int Training = -1; // mode of the training view, -1 for the panels
    bool Filled = false;
    double Density = 1;
};

template <class Number>
std::optional<Number> NumberIn(const std::string& text, Number least, Number most) {
    Number value{};
    const auto [rest, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || rest != text.data() + text.size() || !(value >= least && value <= most))
        return std::nullopt;
    return value;
}

template <class Number>
bool Take(const std::string& text, Number least, Number most, Number& value) {
    const auto number = NumberIn(text, least, most);
    value = number.value_or(value);
    return number.has_value();
}

bool TakeSize(const std::string& text, PictureOptions& options) {
    constexpr int LeastWidth = 800; // as of the window itself
    constexpr int LeastHeight = 600;
    constexpr int Most = 8192;
    const std::size_t cross = text.find('x');
    return cross != std::string::npos && Take(text.substr(0, cross), LeastWidth, Most, options.Width) &&
           Take(text.substr(cross + 1), LeastHeight, Most, options.Height);
}

bool TakeOption(const std::string& name, const std::string& value, PictureOptions& options) {
    if (name == "--second")
        return Take(value, 1, static_cast<int>(SecondsBufferSize), options.Second);
    if (name == "--size")
        return TakeSize(value, options);
    if (name == "--scheme")
        return Take(value, 0, ColourSchemeCount - 1, options.Scheme);
    if (name == "--training")
        return Take(value, 0, ModeCount - 1, options.Training);
    if (name == "--density")
        return Take(value, 0.5, 4.0, options.Density);
    if (name == "--out")
        options.Out = value;
    return name == "--out";
}

std::optional<PictureOptions> ParseOptions(Arguments arguments) {
    PictureOptions options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument == "--filled")
            options.Filled = true;
        else if (!argument.starts_with("--") && options.File.empty())
            options.File = argument;
        else if (i + 1 >= arguments.size() || !TakeOption(argument, arguments[++i], options))
            return std::nullopt;
    }
    if (options.File.empty() || options.Out.empty() || options.Second == 0)
        return std::nullopt;
    return options;
}

// Everything that the seconds before leave behind, then the second itself, which a replay of the whole
// session would not process if it is the last.
void ReplayUpTo(Long second) {
    while (timReplay.Enabled && SessionTick < second)
        ReplayTick();
    timReplay.Enabled = true;
    SessionTick = AnalysisSecond = second;
    RunAnalyses();
}

} // namespace

int RunPicture(int argc, char** argv, Arguments arguments) {
    const auto options = ParseOptions(arguments);
    if (!options) {
        return Complain(
            "usage: pulselark picture FILE.hti --second S --out FILE.png [--size WxH] [--scheme 0..4] "
            "[--filled] [--training 0..3] [--density 0.5..4]",
            ExitUsage);
    }
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("QT_SCALE_FACTOR", std::to_string(options->Density).c_str(), 1);
    const QApplication application(argc, argv);
    StartToolkit();
    WindowPlatform platform;
    platform.SetUnattended();
    StartCore(false);
    FinishStartUp();
    ColourSchemeIndex = static_cast<Integer>(options->Scheme);
    SolidGraphs = ToBoolean(options->Filled);
    TrainingActive = ToBoolean(options->Training >= 0);
    OpenSessionFile(options->File);
    if (LastFileResult != FileSuccess)
        return ComplainOfFile(options->File, LastFileResult, LastFileLine);
    if (options->Second > SessionSeconds)
        return Complain(options->File + ": has " + std::to_string(SessionSeconds) + " seconds only",
                        ExitFailure);
    if (TrainingActive != Off)
        RunModeFromReplay(options->Training);
    ReplayUpTo(options->Second);

    frmMain window(platform);
    window.resize(options->Width, options->Height);
    window.show();
    window.Mirror();
    return SavePicture(window, options->Out);
}

} // namespace pulselark
