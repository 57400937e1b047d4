#include "app/RunWindow.h"

#include "app/Commands.h"
#include "app/EndSignals.h"
#include "app/EventTrace.h"
#include "app/WindowStart.h"
#include "images/BackgroundPicture.h"
#include "persistence/OpenSession.h"
#include "platform/Platform.h"
#include "platform/ProgramFolder.h"
#include "platform/system/DesktopEntry.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/ModulePanels.h"
#include "session/Replay.h"
#include "session/Settings.h"
#include "session/ShutDown.h"
#include "session/StartUp.h"
#include "workspace/Motion.h"
#include "workspace/ToolkitLanguage.h"
#include "workspace/WindowPlatform.h"
#include "workspace/frmAbout_new.h"
#include "workspace/frmMain.h"

#include <QApplication>
#include <QScreen>

#include <cstdio>
#include <memory>

namespace pulselark {

namespace {

// Every second of the session in its turn, with the window painted as often as the eye can follow.
void ReplayAtFullSpeed() {
    constexpr int MillisecondsBetweenPictures = 33;
    auto nextPicture = ThePlatform().Clock.Milliseconds();
    while (timReplay.Enabled) {
        ReplayTick();
        if (ThePlatform().Clock.Milliseconds() >= nextPicture) {
            ThePlatform().MessageLoop.Yield();
            nextPicture = ThePlatform().Clock.Milliseconds() + MillisecondsBetweenPictures;
        }
    }
}

// Beside the program's own files if no place was named.
int LeavePicture(frmMain& window, const std::string& name) {
    const std::string place = name.empty() ? ProgramFolder() + "/workspace.png" : name;
    const int result = SavePicture(window, place);
    if (result == ExitSuccess)
        std::printf("Picture of the workspace: %s\n", place.c_str());
    return result;
}

int RunFullSpeed(frmMain& window, const WindowOptions& options) {
    if (options.File.empty())
        return Complain("--full-speed needs a session file", ExitUsage);
    OpenSessionFile(options.File);
    if (LastFileResult != FileSuccess)
        return ComplainOfFile(options.File, LastFileResult, LastFileLine);
    std::printf("Replaying %s, %d seconds\n", options.File.c_str(), static_cast<int>(SessionSeconds));
    ReplayAtFullSpeed();
    window.Mirror();
    return LeavePicture(window, options.Picture);
}

void FitToScreen(frmMain& window) {
    const QSize wanted(1600, 1000);
    const QScreen* screen = QGuiApplication::primaryScreen();
    // Without a display the picture has the size that a desk usually has.
    if (screen == nullptr || QGuiApplication::platformName() == "offscreen") {
        window.resize(wanted);
        return;
    }
    const QSize room = screen->availableSize();
    Workspace.ScreenWidth = static_cast<float>(screen->size().width()) * 15;
    // The size of the last run, which a configuration keeps, if it still fits.
    const QSize last(static_cast<int>(frmScale.Width / 15), static_cast<int>(frmScale.Height / 15));
    const bool builtIn = last == QSize(1024, 738); // nobody has chosen it
    const bool fits = !builtIn && last.width() >= window.minimumWidth() &&
                      last.height() >= window.minimumHeight() && last.width() <= room.width() &&
                      last.height() <= room.height();
    if (!fits) {
        window.resize(wanted.boundedTo(room * 0.94));
        return;
    }
    const QRect screens = screen->virtualGeometry();
    const QRect place(QPoint(static_cast<int>(frmScale.Left / 15), static_cast<int>(frmScale.Top / 15)),
                      last);
    if (screens.contains(place))
        window.setGeometry(place);
    else
        window.resize(last);
}

// Each line at once, so that a trace is whole whenever it is read.
std::unique_ptr<EventTrace> TraceInto(std::FILE& file) {
    return std::make_unique<EventTrace>([&file](const std::string& line) {
        std::fwrite(line.data(), 1, line.size(), &file);
        std::fflush(&file);
    });
}

} // namespace

int RunWindow(int argc, char** argv, const WindowOptions& options) {
    const QApplication application(argc, argv);
    StartToolkit();
    qputenv("PULSELARK_STARTED", "1"); // programs that it starts can tell that they will be led
    WindowPlatform platform;
    if (options.FullSpeed)
        platform.SetUnattended();
    StartCore(!options.FullSpeed);
    DryTesting = ToBoolean(options.DryTesting);
    LoadBackgroundPicture();
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> traceFile(nullptr, &std::fclose);
    std::unique_ptr<EventTrace> trace;
    if (!options.Trace.empty()) {
        traceFile.reset(std::fopen(options.Trace.c_str(), "w"));
        if (traceFile == nullptr)
            return ComplainOfFile(options.Trace, FailurePathFileAccess, 0);
        trace = TraceInto(*traceFile);
    }
    UseToolkitLanguage();
    frmMain window(platform, options.Version.c_str());
    FitToScreen(window);
    if (options.FullSpeed) {
        FinishStartUp();
        window.show();
        window.Mirror();
        return RunFullSpeed(window, options);
    }
    const EndSignals ends([](int number) {
        constexpr int EndedBySignal = 128; // what a shell makes of it
        EndProgram();
        QApplication::exit(EndedBySignal + number);
    });
    if (ShortcutDone == Off)
        ShortcutDone = ToBoolean(CreateDesktopShortcut() == 0);
    frmAbout_new splash(nullptr, options.Version.c_str());
    const bool waits = options.Splash && ShowAboutAtStart != Off;
    splash.ShowAsSplash({!waits, !MotionWanted()}, [&] {
        window.show();
        BeginStartUp(options.Splash);
        window.Mirror();
    });
    window.OpenWhenStarted(options.File);
    return QApplication::exec();
}

} // namespace pulselark
