#include "session/RedrawPanels.h"

#include "analysis/CoherencePanel.h"
#include "analysis/History.h"
#include "analysis/HrvPanel.h"
#include "analysis/InputCD.h"
#include "analysis/SpectrumPanel.h"
#include "quickscan/QsPage.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/ModulePanels.h"
#include "session/PanelSurfaces.h"
#include "session/SessionTick.h"

namespace pulselark {

void RedrawAllPanels() {
    RedrawEcg(*picIA, *picIB, RecordedSeconds);
    HistoryForceRedraw = On;
    DrawAnalysisPanels();
    HistoryForceRedraw = Off;
}

void OpenHistoryAt(Long second) {
    OpenHistoryPanel(second);
    if (second == 0)
        RedrawHistory(); // before the first second only the scales
}

void OpenAllPanels(bool force) {
    if (SessionRunning != Off && LockScreens != Off && !force)
        return;
    labNoSession.Caption = LanguageText(TextNoSession);
    labNoSession.Visible = SessionSeconds < 1 && SessionRunning == Off && LoadingSession == Off;
    OpenEcgPanel(true);
    OpenSpectrumPanel(true);
    OpenCoherencePanel(true);
    OpenHistoryAt(AnalysisSecond);
    OpenHrvPanel(true);
    if (picModule[ScanPanelIndex].Visible != Off)
        OpenQuickScanPanel();
}

} // namespace pulselark
