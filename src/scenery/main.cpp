#include "scenery/DeveloperCommands.h"
#include "scenery/Scenery.h"
#include "scenery/SceneryWindow.h"
#include "scenery/TidalWindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

using namespace pulselark;

constexpr int ExitUsage = 2;

struct Options {
    PictureOptions Picture;
    double BenchSeconds = 0;
};

int Complain(const char* text) {
    std::fprintf(stderr, "widefb: %s; see --help\n", text);
    return ExitUsage;
}

void Describe(QCommandLineParser& parser) {
    parser.setApplicationDescription(
        "Scenery and breathing pacer, led by the messages of the link; as tidalrun the tidal view.");
    parser.addHelpOption();
    parser.addOptions({{"tidal", "Be the tidal view, as under the name tidalrun."},
                       {"picture", "Draw one picture without a display.", "file"},
                       {"scene", "Scenery of the picture, 0 to 2.", "number", "0"},
                       {"at", "Seconds after the start.", "seconds", "0"},
                       {"value", "Value of the session, 0 to 100.", "value", "50"},
                       {"level", "Level of the session, 0 to 3.", "level", "2"},
                       {"size", "Size in pixels.", "WxH", "1280x800"},
                       {"bench", "Measure what a picture costs.", "seconds"}});
}

bool ReadOptions(const QCommandLineParser& parser, Options& options) {
    bool good = true;
    const auto number = [&](const char* name, double low, double high) {
        bool read = false;
        const double value = parser.value(name).toDouble(&read);
        good = good && read && value >= low && value <= high;
        return value;
    };
    PictureOptions& picture = options.Picture;
    picture.File = parser.value("picture");
    picture.Scenery = static_cast<int>(number("scene", 0, static_cast<double>(SceneryKinds().size()) - 1));
    picture.At = number("at", 0, 1e6);
    picture.Value = number("value", 0, 1000);
    picture.Level = static_cast<int>(number("level", 0, 3));
    const QStringList sides = parser.value("size").split('x');
    picture.Width = sides.value(0).toInt();
    picture.Height = sides.value(1).toInt();
    constexpr int Largest = 8192;
    good = good && sides.size() == 2 && picture.Width > 0 && picture.Height > 0 && picture.Width <= Largest &&
           picture.Height <= Largest;
    if (parser.isSet("bench"))
        options.BenchSeconds = number("bench", 0.1, 3600);
    return good && parser.positionalArguments().isEmpty();
}

bool NeedsNoDisplay(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        if (std::strncmp(argv[i], "--picture", 9) == 0 || std::strncmp(argv[i], "--bench", 7) == 0)
            return true;
    }
    return false;
}

template <class Window>
int RunWindow(QApplication& application) {
    Window window;
    if (!window.Listen())
        return 0; // the one that runs has come forward
    window.Present();
    return application.exec();
}

} // namespace

int main(int argc, char** argv) {
    if (NeedsNoDisplay(argc, argv))
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QApplication application(argc, argv);
    QCommandLineParser parser;
    Describe(parser);
    parser.process(application);
    Options options;
    if (!ReadOptions(parser, options))
        return Complain("this is not understood");
    options.Picture.Tidal =
        parser.isSet("tidal") || QFileInfo(QString::fromLocal8Bit(argv[0])).fileName() == "tidalrun";
    if (options.BenchSeconds > 0)
        return RunSceneryBench(options.BenchSeconds, options.Picture.Width, options.Picture.Height);
    if (!options.Picture.File.isEmpty())
        return RunPictureOfScenery(options.Picture);
    return options.Picture.Tidal ? RunWindow<TidalWindow>(application)
                                 : RunWindow<SceneryWindow>(application);
}
