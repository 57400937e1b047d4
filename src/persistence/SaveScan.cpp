#include "persistence/SaveScan.h"

#include "analysis/CoherenceBins.h"
#include "persistence/SaveSteps.h"
#include "persistence/ScanFile.h"
#include "platform/Platform.h"
#include "quickscan/QsAnalysis.h"
#include "quickscan/QuickScan.h"
#include "session/LanguageTable.h"
#include "session/MainControls.h"
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
    measure();
    const Integer failure = WriteShown(*chosen, text);
    BringSceneryBack();
    if (failure != 0) {
        TellSaveFailure(failure, *chosen);
        return;
    }
    LastFileResult = FileSuccess;
    ShowStatus(*chosen + LanguageText(TextSaved));
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
