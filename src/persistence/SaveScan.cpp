#include "persistence/SaveScan.h"

#include "analysis/CoherenceBins.h"
#include "persistence/SaveSteps.h"
#include "persistence/ScanFile.h"
#include "platform/Platform.h"
#include "quickscan/QsAnalysis.h"
#include "quickscan/QuickScan.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/ReportDocument.h"
#include "session/SessionButtons.h"

namespace pulselark {

namespace {

constexpr Long LeastSeconds = 5;

void SaveAs(void (*measure)(), std::string (*text)()) {
    if (SessionSeconds < LeastSeconds) {
        ThePlatform().Messages.Show(LanguageText(TextNothingToDo), ButtonOK);
        return;
    }
    const auto chosen = AskForFileToSave(ScanFileFilter);
    if (!chosen)
        return;
    LastSaveFolder = *chosen;
    RefreshSessionButtons(false);
    std::string& lock = SessionInfo.back();
    const std::string before = lock;
    CollectReportFields();
    lock = before; // only a session that is saved becomes a locked one
    measure();
    EndSave(WriteTextShown(*chosen, text), *chosen);
}

} // namespace

void ExportScan() {
    MeasureOtherChannel();
    if (TrainingActive != Off)
        SaveTrainingScan();
    else
        SaveScan();
}

void SaveScan() {
    SaveAs([] {}, &ScanText);
}

void SaveTrainingScan() {
    SaveAs(&MeasureTrainingScan, &TrainingScanText);
}

void MeasureTrainingScan() {
    const Boolean shown = QuickScanFresh;
    const double index = DynamicIndex;
    QuickScanFresh = On;
    QsMeasure();
    SessionScore = DynamicIndex;
    DynamicIndex = index;
    QuickScanFresh = shown;
}

} // namespace pulselark
