#include "app/RunWindow.h"

#include "app/Commands.h"
#include "app/WindowStart.h"
#include "persistence/OpenSession.h"
#include "platform/Platform.h"
#include "platform/ProgramFolder.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/Replay.h"
#include "workspace/WindowPlatform.h"
#include "workspace/frmMain.h"

#include <QApplication>
#include <QScreen>

#include <cstdio>

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
    window.resize(wanted.boundedTo(room * 0.94));
}

} // namespace

int RunWindow(int argc, char** argv, const WindowOptions& options) {
    const QApplication application(argc, argv);
    StartToolkit();
    WindowPlatform platform;
    if (options.FullSpeed)
        platform.SetUnattended();
    StartCore();
    frmMain window(platform);
    FitToScreen(window);
    window.show();
    window.Mirror();
    if (options.FullSpeed)
        return RunFullSpeed(window, options);
    if (!options.File.empty()) {
        QCoreApplication::processEvents(); // the window is there before the file is read
        OpenNamedSessionFromMenu(options.File);
        window.Mirror();
    }
    return QApplication::exec();
}

} // namespace pulselark
