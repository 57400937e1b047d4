#include "app/Commands.h"
#include "app/Picture.h"
#include "app/RunWindow.h"
#include "app/ScanPages.h"
#include "platform/monitors/DeviceMonitors.h"
#include "platform/monitors/StandardMonitors.h"
#include "platform/system/DisplayAnswers.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

namespace {

using namespace pulselark;

std::optional<WindowOptions> ParseWindowOptions(const std::vector<std::string>& arguments) {
    WindowOptions options;
    options.Version = PULSELARK_VERSION;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == "--full-speed")
            options.FullSpeed = true;
        else if (arguments[i] == "--dry-testing")
            options.DryTesting = true;
        else if (arguments[i] == "--no-splash")
            options.Splash = false;
        else if (arguments[i] == "--picture" && i + 1 < arguments.size())
            options.Picture = arguments[++i];
        else if (arguments[i] == "--trace" && i + 1 < arguments.size())
            options.Trace = arguments[++i];
        else if (!arguments[i].starts_with("-") && options.File.empty())
            options.File = arguments[i];
        else
            return std::nullopt;
    }
    return options;
}

void AddAllMonitors(SystemMonitors& monitors, const MonitorSurroundings& surroundings) {
    AddStandardMonitors(monitors, surroundings);
    AddDeviceMonitors(monitors, surroundings);
}

// Monitors on a port or a radio live in the toolkit's event loop.
int RunRecordHere(int argc, char** argv, Arguments arguments) {
    const QCoreApplication application(argc, argv);
    return RunRecord(arguments, {.AddMonitors = &AddAllMonitors, .Wait = [](int milliseconds) {
                                     QEventLoop loop;
                                     QTimer end;
                                     end.setTimerType(Qt::PreciseTimer);
                                     end.setSingleShot(true);
                                     QObject::connect(&end, &QTimer::timeout, &loop, &QEventLoop::quit);
                                     end.start(milliseconds);
                                     loop.exec();
                                 }});
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const std::string first = arguments.empty() ? "" : arguments.front();
    const bool help = std::find(arguments.begin(), arguments.end(), "--help") != arguments.end();
    if (help || first == "-h") {
        std::fputs(HelpText().c_str(), stdout);
        return ExitSuccess;
    }
    if (first == "--version") {
        std::puts("PulseLark " PULSELARK_VERSION);
        return ExitSuccess;
    }
    if (first == "analyse")
        return RunAnalyse(Arguments(arguments).subspan(1));
    if (first == "trace")
        return RunTrace(Arguments(arguments).subspan(1));
    if (first == "resave")
        return RunResave(Arguments(arguments).subspan(1));
    if (first == "beats")
        return RunBeats(Arguments(arguments).subspan(1));
    if (first == "chord")
        return RunChord(Arguments(arguments).subspan(1));

    if (first == "recover")
        return RunRecover(Arguments(arguments).subspan(1));
    if (first == "record")
        return RunRecordHere(argc, argv, Arguments(arguments).subspan(1));

    if (first == "picture")
        return RunPicture(argc, argv, Arguments(arguments).subspan(1));

    if (first == "scan")
        return RunScan(Arguments(arguments).subspan(1), PagesOfToolkit(argc, argv));

    auto options = ParseWindowOptions(arguments);
    if (!options)
        return Complain("this is not understood; see pulselark --help", ExitUsage);
    if (!DisplayAnswers()) {
        if (options->File.empty() && !options->FullSpeed)
            return Complain(
                "there is no display; give a session file to replay it into a picture, or see --help",
                ExitFailure);
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
        options->FullSpeed = true;
    }
    PreferPlacedWindows();
    if (!options->Picture.empty() && !options->FullSpeed)
        return Complain("--picture goes with --full-speed; see pulselark --help", ExitUsage);
    return RunWindow(argc, argv, *options);
}
