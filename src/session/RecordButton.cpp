#include "session/RecordButton.h"

#include "persistence/DropSession.h"
#include "quickscan/QuickScan.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/MonitorChoice.h"
#include "session/Recording.h"

namespace pulselark {

namespace {

void AskToStop() {
    StopRequested = On;
    if (AllowMultiSessions != Off)
        SessionPaused = On;
}

} // namespace

void ReleaseRecordButton(MouseButton button) {
    const bool busy = SessionBusy() || SeekBusy != Off || DialogOpen != Off;
    if (button != LeftButton || TrainingActive != Off || busy)
        return;
    if (SessionRunning != Off) {
        AskToStop();
    } else {
        if (SessionPaused != Off && InsertSeparator != Off)
            FillResumeGap();
        if (SessionPaused == Off && !MayDropSession(TextSaveBeforeRecording))
            return;
        if (timReplay.Enabled)
            EndReplay(); // its cursor is the recording's
        StartRecording();
        OfferMonitorChooser();
    }
    ResetQuickScan();
}

} // namespace pulselark
