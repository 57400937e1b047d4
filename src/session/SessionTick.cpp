#include "session/SessionTick.h"

#include "analysis/CoherencePanel.h"
#include "analysis/GCoherence.h"
#include "analysis/HRV.h"
#include "analysis/History.h"
#include "analysis/HrvPanel.h"
#include "analysis/InputCD.h"
#include "analysis/Spectrum.h"
#include "analysis/SpectrumPanel.h"
#include "feedback/MidiChord.h"
#include "feedback/SendAppData.h"
#include "feedback/ggz.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/PanelSurfaces.h"

namespace pulselark {

void (*AfterSecond)() = nullptr;

namespace {

// The second at which biofeedback starts: before it there is too little data.
constexpr Long FeedbackStartSecond = 14;

bool TrainingInModeUpTo(double mode) {
    return TrainingActive != Off && FeedbackMode <= mode;
}

void SendSecondToLink() {
    SendAppCommand(CmdTick, SessionTick);
    SendAppArray(1);
    SendAppArray(0);
    SendCoherenceValue();
}

} // namespace

void ShowStartNotice() {
    const bool counting = FeedbackMode >= 2 && FeedbackEnabled != Off && TrainingActive != Off &&
                          SessionTick < FeedbackStartSecond;
    if (counting) {
        labBFStart.Caption = LanguageText(TextStartsAfter) +
                             std::to_string(FeedbackStartSecond - SessionTick) +
                             LanguageText(TextStartsAfterSeconds);
    }
    labBFStart.Visible = counting;
}

void RunAnalyses() {
    CalcSpectrumA();
    CalcSpectrumB();
    CalcCoherenceA();
    CalcCoherenceB();
    SmoothSeries();
    CalcHrvA();
    CalcHrvB();
}

void DrawAnalysisPanels(double stillHistoryMode, void (*beforeHistory)()) {
    DrawSpectrumA();
    DrawSpectrumB();
    // The selected training has no use for the panels that stand still.
    if (!TrainingInModeUpTo(1)) {
        DrawCoherenceA();
        DrawCoherenceB();
    }
    if (beforeHistory != nullptr)
        beforeHistory();
    if (!TrainingInModeUpTo(stillHistoryMode)) {
        DrawHistoryA();
        DrawHistoryB();
    }
    DrawHrvA();
    DrawHrvB();
}

void PlayChordIfWanted() {
    const bool inTraining = FeedbackMode >= 2 && TrainingActive != Off && MidiInTraining != Off;
    const bool inPanels = TrainingActive == Off && MidiInPanels != Off;
    if (inTraining || inPanels)
        PlayMidiChord(false, 0, 0);
    else
        EndMidiChord();
}

void RunSecond(bool feedback) {
    ShowStartNotice();
    AnalysisSecond = SessionTick;
    RunAnalyses();
    if (AppLinkOnly == Off) {
        DrawEcgA(*picIAP, SessionTick);
        DrawEcgB(*picIBP, SessionTick);
        DrawAnalysisPanels();
    } else {
        SendSecondToLink();
    }
    if (TrainingActive != Off && feedback) {
        AnalysisSecond = SessionTick;
        TickTraining();
    }
    if (feedback)
        PlayChordIfWanted();
    if (AfterSecond != nullptr)
        AfterSecond();
    EcgViewState.LastSeekSecond = 0; // what a seek has left is no longer shown
}

void RunSessionTick() {
    RunSecond(true);
    ++SessionTick;
}

} // namespace pulselark
