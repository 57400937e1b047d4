#include "quickscan/QuickScan.h"

#include "platform/Platform.h"
#include "quickscan/QsAnalysis.h"
#include "quickscan/QsPage.h"
#include "quickscan/QsPrint.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/PanelSurfaces.h"
#include "session/Replay.h"

#include <algorithm>

namespace pulselark {

Integer QsTickCount = 0;

namespace {

constexpr Colour HoverColour = 0xDBE5E5;
constexpr Colour PressedColour = 0xC8D2D2;

void Tell(int text) {
    ThePlatform().Messages.Show(LanguageText(text), ButtonOK);
}

void FlipChannel() {
    QuickScanFresh = static_cast<Boolean>(~QuickScanFresh);
    OpenQuickScanPanel();
    if (QuickScanFresh == Off && ChannelBPresent == Off)
        Tell(TextScanNoChannelB);
}

void TryToScan() {
    if (SessionSeconds <= ScanMinimumSeconds) {
        Tell(SessionSeconds > ScanSettlingSeconds ? TextScanTooShort : TextNothingToDo);
        return;
    }
    if (timReplay.Enabled)
        EndReplay();
    if (SessionRunning != Off)
        Tell(TextScanWhileRecording);
    else
        StartQuickScan();
}

void StopCountdown() {
    timQS.Enabled = false;
    ThePlatform().Progress.Hide();
}

} // namespace

void ResetQuickScan() {
    if (timQS.Enabled)
        StopCountdown();
    QuickScanResultShown = Off;
    labQSMenu[0].Caption = LanguageText(TextQuickScan);
}

void QsButtonClick(int index) {
    QsPointerLeave();
    if (index == 1)
        QsPrint();
    else if (QuickScanResultShown != Off)
        FlipChannel();
    else
        TryToScan();
}

void QsButtonHover(int index, QsPointer pointer) {
    Label& entry = labQSMenu.at(static_cast<std::size_t>(index));
    entry.ForeColour = pointer == QsPointer::Over      ? HoverColour
                       : pointer == QsPointer::Pressed ? PressedColour
                                                       : 0;
}

void StartQuickScan() {
    ThePlatform().Progress.Show(LanguageText(TextProgressQuickScan));
    QsTickCount = 0;
    timQS.Enabled = true;
}

void QsTimerTick() {
    if (SessionBusy())
        return; // a session is being loaded, which ends this countdown
    if (SessionSeconds / 100.0 > QsTickCount) {
        timQS.Enabled = false;
        // A session ends at 3601 seconds, so the product stays far within its 16 bits.
        const auto product = static_cast<Integer>(QsTickCount * 10);
        ThePlatform().Progress.Draw(std::clamp(product / (SessionSeconds / 50.0) * 100, 0.0, 100.0));
        ThePlatform().MessageLoop.Yield();
        ++QsTickCount;
        timQS.Enabled = true;
        return;
    }
    StopCountdown();
    // What was to be scanned may have gone in the meantime.
    if (SessionSeconds > ScanMinimumSeconds && SessionRunning == Off)
        FinishQuickScan();
}

void FinishQuickScan() {
    CohScoreBinsA.Fill(0);
    CohScoreBinsB.Fill(0);
    QuickScanResultShown = On;
    OpenQuickScanPanel();
    labQSMenu[0].Caption = LanguageText(TextScanFlipChannel);
}

void MeasureOtherChannel() {
    if (QuickScanResultShown == Off || ChannelBPresent == Off)
        return;
    QuickScanFresh = static_cast<Boolean>(~QuickScanFresh);
    QsMeasure();
    QuickScanFresh = static_cast<Boolean>(~QuickScanFresh);
}

} // namespace pulselark
