#include "session/Seek.h"

#include "analysis/InputCD.h"
#include "analysis/PanelDrawing.h"
#include "feedback/MIDI_OUT.h"
#include "feedback/ggz.h"
#include "platform/Platform.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/PanelSurfaces.h"
#include "session/Replay.h"
#include "session/SessionTick.h"

#include <algorithm>
#include <array>

namespace pulselark {

namespace {

constexpr std::array<double, 3> SecondsOfRow{1, 5, 30};

void AnchorDrag(double x, double y, double width, double height) {
    EcgViewState.DragX = static_cast<float>(x);
    EcgViewState.DragSecond = static_cast<Integer>(SessionTick);
    const std::int64_t row = height > 0 ? Round(2 * y / height) : 0;
    EcgViewState.SeekRow = static_cast<Integer>(std::clamp<std::int64_t>(row, 0, 2));
    EcgViewState.SeekSensitivity = width * TwipsPerPixel * 10 / 5000;
    EcgViewState.SeekStep = SecondsOfRow[static_cast<std::size_t>(EcgViewState.SeekRow)];
}

// The cursor stops at either end of the session, and the drag is anchored anew there, so that dragging back
// works at once.
void HoldCursor(double x) {
    const Long held = std::clamp<Long>(SessionTick, 1, std::max<Long>(SessionSeconds, 1));
    if (held == SessionTick)
        return;
    SessionTick = held;
    EcgViewState.DragSecond = static_cast<Integer>(held);
    EcgViewState.DragX = static_cast<float>(x);
}

void RecalculateSecond() {
    SeekBusy = On;
    EcgViewState.LastSeekSecond = static_cast<Integer>(SessionTick);
    AnalysisSecond = SessionTick;
    ThePlatform().MessageLoop.Yield();
    RunAnalyses();
    if (AppLinkOnly == Off) {
        constexpr double StillHistoryMode = 1;
        DrawEcgA(*picIA, SessionTick);
        DrawEcgB(*picIB, SessionTick);
        DrawAnalysisPanels(StillHistoryMode, &PlayChordIfWanted);
    } else {
        PlayChordIfWanted();
    }
    SeekBusy = Off;
}

void RecalculateIfNew() {
    if (SessionTick != EcgViewState.LastSeekSecond && SessionTick != 1 && SeekAllowed() && SeekBusy == Off)
        RecalculateSecond();
}

} // namespace

bool SeekAllowed() {
    const bool locked = SessionRunning != Off && LockScreens != Off;
    return !SessionBusy() && !locked;
}

void SeekByEcgPanel(int button, double x, double y, double width, double height) {
    if (SessionBusy() || SeekBusy != Off || SessionSeconds < 1 || width <= 0)
        return;
    if (button == 0)
        AnchorDrag(x, y, width, height);
    if (button != LeftButton || !SeekAllowed())
        return;
    const double share = (x - EcgViewState.DragX) / width;
    const auto steps = static_cast<double>(Round(share * EcgViewState.SeekSensitivity - 0.5));
    SessionTick = static_cast<Long>(EcgViewState.DragSecond + steps * EcgViewState.SeekStep);
    HoldCursor(x);
    RecalculateIfNew();
}

void PressEcgPanel() {
    if (timReplay.Enabled)
        EndReplay();
}

void ReleaseEcgPanel() {
    if (SessionSeconds < 1 || SessionBusy())
        return;
    SilenceMidi();
    RedrawEcg(*picIA, *picIB, SessionTick);
    if (TrainingActive != Off)
        TickTraining();
}

void SeekToSecond(Long second) {
    if (SessionSeconds < 1 || !SeekAllowed() || SeekBusy != Off)
        return;
    PressEcgPanel();
    SessionTick = std::clamp<Long>(second, 1, SessionSeconds);
    RecalculateIfNew();
    ReleaseEcgPanel();
}

} // namespace pulselark
