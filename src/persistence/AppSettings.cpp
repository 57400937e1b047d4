#include "persistence/AppSettings.h"

#include "analysis/CoherencePanel.h"
#include "analysis/ColourSchemes.h"
#include "analysis/GCoherence.h"
#include "analysis/History.h"
#include "analysis/HrvPanel.h"
#include "analysis/PanelDrawing.h"
#include "analysis/SpectrumPanel.h"
#include "persistence/OmsRecords.h"
#include "persistence/SettingsFile.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/Settings.h"

namespace pulselark {

namespace {

constexpr Integer KnobEnd = 1000;

void FollowKnobs() {
    SpectrumDepth = SpectrumDepthFromKnob(SpectrumDepthKnob);
    SpectrumStep = SpectrumStepFromKnob(SpectrumStepKnob);
    CoherenceDepth = CoherenceDepthFromKnob(CoherenceDepthKnob);
    CoherenceStep = CoherenceStepFromKnob(CoherenceStepKnob);
    MovingAverageWidth = MovingAverageFromKnob(MovingAverageKnob);
}

// A gain within the limits of its panel's drag, given as scales.
template <class Records>
void Gain(Records& records, double& gain, double leastScale, double mostScale) {
    records.Real(gain, GainOfScale(leastScale), GainOfScale(mostScale));
}

template <class Records>
void WorkspaceLines(Records& records) {
    records.Whole(SpectrumDepthKnob, 0, KnobEnd);
    records.Whole(SpectrumStepKnob, 0, KnobEnd);
    records.Whole(CoherenceDepthKnob, 0, KnobEnd);
    records.Whole(CoherenceStepKnob, 0, KnobEnd);
    records.Flag(ShowAboutAtStart);
    records.Flag(AutoLoadPrevConfig);
    records.Flag(AutoScaleAll);
    records.Flag(ShowBackground);
    records.Flag(AllowMultiSessions);
    records.Flag(InsertSeparator);
    records.Flag(LockPanels);
    records.Flag(LockScreens);
    records.Flag(ShowGoldenRatio);
    records.Flag(ShowOctaveRatio);
    records.Flag(SolidFillGraph);
    records.Flag(OctaveInFront);
    records.Whole(HistoryStyle, 1, HistoryStyleMax);
    records.Flag(SnapPanels);
    for (int i = 0; i < 4; ++i)
        records.ReservedLong();
    records.Flag(ShortcutDone);
    records.ReservedLong();
    records.ReservedLong();
    records.Reserved();
}

template <class Records>
void AnalysisLines(Records& records) {
    records.Whole(ChannelMode, 1, 3);
    records.Whole(LanguageIndex, 0, LanguageCount - 1);
    records.Flag(AutoEndSession);
    records.Whole(SpectrumMaxHz, 10, 64);
    Gain(records, SpectrumGain, 80, 160);
    Gain(records, CoherenceGain, 85, 130);
    Gain(records, HrvGain, 100, 160);
    Gain(records, HistoryGain, 85, 130);
    records.Whole(HistorySpanSeconds, 10, 364);
    records.Flag(SpectrumPerHz);
    records.Flag(QsShowPie);
    records.Flag(QsShowBands);
    records.Flag(QsShowReference);
    records.Flag(ShowBpmCoherence);
    records.Whole(QsSmoothingChannel);
    records.Flag(QsShowBpm);
    records.Whole(MovingAverageKnob, 0, KnobEnd);
    records.Flag(MidiInPanels);
    records.Whole(ColourSchemeIndex, 0, ColourSchemeCount - 1);
    records.Flag(TrainingActive);
    records.Flag(SolidGraphs);
    records.Flag(ShowHrvPower);
    records.Text(MonitorName);
    records.Whole(SerialPort);
}

template <class Records>
void AppSettingsLines(Records& records) {
    records.Header();
    WorkspaceLines(records);
    AnalysisLines(records);
    records.Padding();
    records.Padding();
}

constexpr SettingsFile File{
    "app.oms", &ReadAppSettingsText, &AppSettingsText, &SetDefaultSettings, TextAppSettingsLoadFailed, "_3 ",
    nullptr};

} // namespace

FileOutcome ReadAppSettingsText(std::string_view text) {
    const FileOutcome outcome = ReadOms(text, AppSettingsLines<OmsReader>);
    FollowKnobs();
    return outcome;
}

std::string AppSettingsText() {
    OmsWriter writer;
    AppSettingsLines(writer);
    return writer.Out;
}

void LoadAppSettings() {
    LoadSettingsFile(File);
}

void SaveAppSettings() {
    SaveSettingsFile(File);
}

void SetDefaultSettings() {
    SpectrumDepthKnob = CoherenceDepthKnob = 500;
    SpectrumStepKnob = CoherenceStepKnob = KnobEnd;
    ShowAboutAtStart = AutoLoadPrevConfig = AutoScaleAll = ShowBackground = On;
    AllowMultiSessions = Off;
    InsertSeparator = On;
    LockPanels = Off;
    LockScreens = On;
    ShowGoldenRatio = ShowOctaveRatio = On;
    SolidFillGraph = OctaveInFront = Off;
    HistoryStyle = 3;
    ChannelMode = 2;
    LanguageIndex = 0;
    AutoEndSession = On;
    SpectrumMaxHz = 64;
    SpectrumGain = CoherenceGain = HrvGain = HistoryGain = 100;
    HistorySpanSeconds = 60;
    ShowBpmCoherence = QsShowBpm = On;
    MovingAverageKnob = 500;
    ColourSchemeIndex = 0;
    TrainingActive = Off;
    SolidGraphs = On;
    MonitorName = "Select your ECG monitor";
    SerialPort = 1;
    FollowKnobs();
}

void SetPresetSettings() {
    SpectrumDepthKnob = CoherenceDepthKnob = 52;
    SpectrumStepKnob = CoherenceStepKnob = KnobEnd;
    AutoLoadPrevConfig = ShowBackground = On;
    AllowMultiSessions = Off;
    InsertSeparator = LockPanels = LockScreens = On;
    AutoEndSession = Off;
    HistoryStyle = 3;
    SolidFillGraph = Off;
    ShowBpmCoherence = QsShowBpm = On;
    MovingAverageKnob = 275;
    FollowKnobs();
}

} // namespace pulselark
