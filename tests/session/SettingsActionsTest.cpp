#include "session/SettingsActions.h"

#include "analysis/CoherencePanel.h"
#include "analysis/ColourSchemes.h"
#include "analysis/GCoherence.h"
#include "analysis/History.h"
#include "analysis/HrvPanel.h"
#include "analysis/SpectrumPanel.h"
#include "feedback/MIDI_OUT.h"
#include "session/AnalysisBuffers.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/PanelSurfaces.h"
#include "session/Settings.h"
#include "support/PanelTest.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

namespace pulselark {
namespace {

class SettingsActions : public PanelTest {
protected:
    // By the numbers that the toggles carry in the form.
    const std::map<int, Boolean*> Values{
        {0, &ShowAboutAtStart},   {1, &AutoLoadPrevConfig}, {2, &AutoScaleAll},    {3, &ShowBackground},
        {4, &AllowMultiSessions}, {5, &InsertSeparator},    {6, &LockScreens},     {7, &ShowBpmCoherence},
        {8, &ShowGoldenRatio},    {9, &ShowOctaveRatio},    {10, &SolidFillGraph}, {11, &OctaveInFront},
        {12, &AutoEndSession},    {15, &QsShowPie},         {16, &QsShowBands},    {17, &QsShowReference},
        {18, &QsShowBpm},         {19, &SolidGraphs},       {20, &ShowHrvPower}};

    std::map<int, Boolean> Now() const {
        std::map<int, Boolean> now{{13, SpectrumPerHz}};
        for (const auto& [index, value] : Values)
            now[index] = *value;
        return now;
    }
    void OpenCoherence() {
        Place(Sizes[0], picGCA, picGCB);
        RecordedSeconds = AnalysisSecond = 20;
        PeakIndexA = PeakIndexB = 48; // 80 beats per minute
    }
    static bool Prints(const RecordingSurface& panel, const std::string& text) {
        return std::any_of(panel.Texts.begin(), panel.Texts.end(),
                           [&](const auto& each) { return each.Value == text; });
    }
};

TEST_F(SettingsActions, EachToggleTurnsItsOwnValueOverAndNoOther) {
    for (const auto& [index, value] : Values) {
        for (int click = 0; click < 2; ++click) {
            auto wanted = Now();
            wanted[index] = wanted[index] == Off ? On : Off;
            ToggleSetting(index);
            EXPECT_EQ(Now(), wanted) << "toggle " << index;
        }
    }
    EXPECT_TRUE(Outside.Boxes.Shown.empty());
}

TEST_F(SettingsActions, TheUnitPerHertzOnlySaysThatItIsNotAvailable) {
    for (const Boolean unit : {Off, On}) {
        SpectrumPerHz = unit;
        Outside.Boxes.Shown.clear();
        const auto before = Now();
        ToggleSetting(14);
        EXPECT_EQ(Now(), before);
        EXPECT_EQ(Outside.Boxes.Shown, (std::vector<FakeMessages::Message>{{"<251>", ButtonOK}}));
        EXPECT_EQ(SettingOn(13), unit == Off);
        EXPECT_EQ(SettingOn(14), unit != Off);
        ToggleSetting(13);
        EXPECT_EQ(SpectrumPerHz, Off);
        EXPECT_TRUE(SettingOn(13));
        EXPECT_FALSE(SettingOn(14));
    }
}

TEST_F(SettingsActions, ADependentToggleShowsWithTheOneBeforeAndKeepsItsValue) {
    struct Pair {
        int First, Dependent;
    };
    for (const auto& [first, dependent] : {Pair{4, 5}, Pair{10, 11}}) {
        for (const Boolean a : {Off, On}) {
            for (const Boolean b : {Off, On}) {
                *Values.at(first) = a;
                *Values.at(dependent) = b;
                EXPECT_EQ(SettingShown(dependent), a != Off);
                EXPECT_EQ(SettingOn(dependent), a != Off && b != Off);
                EXPECT_EQ(SettingOn(first), a != Off);
                ToggleSetting(first);
                EXPECT_EQ(*Values.at(dependent), b);
            }
        }
    }
}

TEST_F(SettingsActions, NumbersThatAreNoneOfTheFormDoNothing) {
    const auto before = Now();
    for (const int index : {-1, 21, 1000}) {
        ToggleSetting(index);
        RunSettingAction(index);
        SetColourScheme(index);
        ChooseLanguage(index);
        EXPECT_FALSE(SettingOn(index));
        EXPECT_FALSE(SettingShown(index));
    }
    ChooseLanguage(17); // the first without a name
    EXPECT_EQ(Now(), before);
    EXPECT_EQ(ColourSchemeIndex, 0);
    EXPECT_EQ(LanguageIndex, 0);
    EXPECT_EQ(ChannelMode, 2);
}

TEST_F(SettingsActions, TheStatusLineFollowsTheLanguage) {
    LanguageTable(0, TextRecordingStopped) = " - stopped";
    LanguageTable(1, TextRecordingStopped) = " - gestoppt";
    labStatus.Caption = "noname - stopped";
    labConnection.Caption = "of another";
    ChooseLanguage(1);
    EXPECT_EQ(labStatus.Caption, "noname - gestoppt");
    EXPECT_EQ(labConnection.Caption, "of another");
}

TEST_F(SettingsActions, TheRateOfTheCoherenceComesAndGoesOnBothPanels) {
    OpenCoherence();
    for (const bool shown : {false, true}) {
        A->Forget();
        B->Forget();
        ToggleSetting(7);
        EXPECT_EQ(Prints(*A, "80 BPMc"), shown);
        EXPECT_EQ(Prints(*B, "80 BPMc"), shown);
    }
}

TEST_F(SettingsActions, SolidGraphsAndBandPowersShowAtOnce) {
    Place(Sizes[0], picHRVPowerA, picHRVPowerB);
    ToggleSetting(20);
    EXPECT_EQ(ShowHrvPower, Off);
    Place(Sizes[0], picSA, picSB);
    A->SetPersistent(true);
    B->SetPersistent(true);
    RecordedSeconds = AnalysisSecond = 20;
    ToggleSetting(19);
    EXPECT_FALSE(A->Fills.empty());
    EXPECT_FALSE(B->Fills.empty());
    A->Forget();
    ToggleSetting(19);
    EXPECT_FALSE(A->Traces.empty());
    EXPECT_TRUE(A->Fills.empty());
}

TEST_F(SettingsActions, ChannelModesGoRoundAndOnlyTwoOfThemDecideAboutChannelB) {
    struct Step {
        Integer Mode;
        Boolean ChannelB;
    };
    Place(Sizes[0], picSA, picSB);
    LanguageTable(0, 61) = "channel select: ";
    SessionRunning = LockScreens = On; // the panels follow even so
    for (const auto& [mode, channelB] :
         {Step{3, Off}, Step{1, On}, Step{2, Off}, Step{3, Off}, Step{1, On}}) {
        A->Forget();
        RunSettingAction(2);
        EXPECT_EQ(ChannelMode, mode);
        EXPECT_EQ(ChannelBPresent, channelB);
        const std::string words = "<" + std::to_string(151 + mode) + ">";
        EXPECT_EQ(labChannelMode.Caption, words);
        EXPECT_EQ(SettingActionCaption(2), "channel select: " + words);
        EXPECT_FALSE(A->Untouched());
    }
    ChannelMode = 2;
    ChannelBPresent = On;
    RunSettingAction(2);
    EXPECT_EQ(ChannelBPresent, On); // mode 3 leaves it
}

TEST_F(SettingsActions, ChannelBHasItsAveragesAsSoonAsItShows) {
    ChannelMode = 3;
    MovingAverageWidth = 1;
    AnalysisSecond = 3;
    for (int second = 1; second <= 4; ++second)
        CoherenceB[second] = IbiB[second] = static_cast<float>(second);
    RunSettingAction(2);
    EXPECT_FLOAT_EQ(CoherenceAvgB[4], 3.5F);
    EXPECT_FLOAT_EQ(IbiAvgB[3], 2.5F);
}

// ---- Knobs ----

const SettingsKnob& KnobNamed(const std::string& name) {
    const auto knobs = SettingsKnobs();
    return *std::find_if(knobs.begin(), knobs.end(), [&](const auto& knob) { return name == knob.Name; });
}

TEST_F(SettingsActions, KnobsSetTheirValuesAndCaptions) {
    LanguageTable(0, 66) = " sec.";
    for (const int position : {0, 200, 333, 1000}) {
        const double p = position / 1000.0;
        for (const SettingsKnob& knob : SettingsKnobs()) {
            knob.Set(static_cast<Integer>(position));
            EXPECT_EQ(knob.Position, position) << knob.Name;
        }
        const auto depth = static_cast<int>(std::nearbyint(19 * p));
        const auto width = static_cast<int>(std::nearbyint(29 * p));
        const double spectrumStep = std::nearbyint(375 * std::exp(2.5 * p));
        const double coherenceStep = 0.0012 * std::exp(2.5 * p);
        EXPECT_EQ(SpectrumDepth, depth);
        EXPECT_EQ(CoherenceDepth, depth);
        EXPECT_EQ(SpectrumStep, static_cast<int>(spectrumStep));
        EXPECT_DOUBLE_EQ(CoherenceStep, coherenceStep);
        EXPECT_EQ(MovingAverageWidth, width);
        const auto shown = [](double value) { return std::to_string(std::lrint(value)); };
        EXPECT_EQ(KnobCaption(KnobNamed("picSwdUp")), shown(depth + 1));
        EXPECT_EQ(KnobCaption(KnobNamed("picGCwdUp")), shown(depth + 1));
        EXPECT_EQ(KnobCaption(KnobNamed("picSwsUp")), shown(spectrumStep / 45.8));
        EXPECT_EQ(KnobCaption(KnobNamed("picGCwsUp")), shown(coherenceStep * 6837));
        EXPECT_EQ(KnobCaption(KnobNamed("picHisAvUp")), shown(width + 1) + " sec.");
    }
}

TEST_F(SettingsActions, AKnobStaysOnItsTrack) {
    for (const SettingsKnob& knob : SettingsKnobs()) {
        knob.Set(-5);
        EXPECT_EQ(knob.Position, 0) << knob.Name;
        knob.Set(1001);
        EXPECT_EQ(knob.Position, 1000) << knob.Name;
    }
}

TEST_F(SettingsActions, AStepChangesWhatIsShownByOneFromEndToEnd) {
    const std::map<std::string, std::array<int, 2>> ends{{"picSwdUp", {1, 20}},
                                                         {"picSwsUp", {8, 100}},
                                                         {"picGCwdUp", {1, 20}},
                                                         {"picGCwsUp", {8, 100}},
                                                         {"picHisAvUp", {1, 30}}};
    for (const SettingsKnob& knob : SettingsKnobs()) {
        const auto [least, most] = ends.at(knob.Name);
        knob.Set(0);
        for (int shown = least; shown < most; ++shown) {
            ASSERT_EQ(knob.Shown(), shown) << knob.Name;
            knob.Set(KnobSteppedBy(knob, 1));
        }
        EXPECT_EQ(knob.Position, 1000);
        EXPECT_EQ(KnobSteppedBy(knob, 1), 1000);
        for (int shown = most; shown > least; --shown) {
            ASSERT_EQ(knob.Shown(), shown) << knob.Name;
            knob.Set(KnobSteppedBy(knob, -1));
        }
        EXPECT_EQ(knob.Position, 0);
        EXPECT_EQ(KnobSteppedBy(knob, -1000), 0);
        knob.Set(KnobSteppedBy(knob, 10));
        EXPECT_EQ(knob.Shown(), least + 10);
    }
}

TEST_F(SettingsActions, ATurningKnobDrawsPassingPicturesAndItsReleaseALastingOne) {
    struct Family {
        void (*Turn)(Integer);
        Surface** First;
        Surface** Second;
    };
    for (const auto& [turn, first, second] :
         {Family{&SetSpectrumDepthKnob, &picSA, &picSB}, Family{&SetSpectrumStepKnob, &picSA, &picSB},
          Family{&SetCoherenceDepthKnob, &picGCA, &picGCB},
          Family{&SetCoherenceStepKnob, &picGCA, &picGCB}}) {
        Place(Sizes[0], *first, *second);
        RecordedSeconds = AnalysisSecond = 20;
        A->SetPersistent(true);
        B->SetPersistent(true);
        turn(500);
        for (RecordingSurface* panel : {&*A, &*B}) {
            EXPECT_FALSE(panel->Persistent());
            EXPECT_FALSE(panel->Traces.empty());
            panel->Forget();
        }
        EndKnobDrag();
        for (RecordingSurface* panel : {&*A, &*B}) {
            EXPECT_TRUE(panel->Persistent());
            EXPECT_FALSE(panel->Traces.empty());
            panel->Forget();
        }
        EndKnobDrag(); // nothing is left to draw
        EXPECT_TRUE(A->Untouched());
        ResetPanelSurfaces();
    }
}

TEST_F(SettingsActions, TheDepthIsTheNumberOfCurves) {
    OpenCoherence();
    for (const Integer position : {Integer{0}, Integer{500}, KnobEnd}) {
        A->Forget();
        SetCoherenceDepthKnob(position);
        const auto shadow = static_cast<std::size_t>(position == 0);
        EXPECT_EQ(A->Traces.size(), static_cast<std::size_t>(CoherenceDepth + 1) + shadow);
    }
}

TEST_F(SettingsActions, TheAveragingWorksOnBothSeriesAndShowsInTheSameSecond) {
    Place(Sizes[0], picHisA, picHisB);
    RecordedSeconds = AnalysisSecond = 40;
    ChannelBPresent = On;
    for (int second = 1; second <= 41; ++second) {
        CoherenceA[second] = second % 2 == 0 ? 0.1F : 0;
        IbiB[second] = second % 2 == 0 ? 1.0F : 0.5F;
    }
    SetMovingAverageKnob(0);
    EXPECT_FLOAT_EQ(CoherenceAvgA[40], 0.1F);
    A->Forget();
    B->Forget();
    SetMovingAverageKnob(34); // 2 sec.
    EXPECT_FLOAT_EQ(CoherenceAvgA[40], 0.05F);
    EXPECT_FLOAT_EQ(IbiAvgB[41], 0.75F);
    EXPECT_FALSE(A->Traces.empty());
    EXPECT_FALSE(B->Traces.empty());
    EXPECT_EQ(HistoryForceRedraw, Off);
}

TEST_F(SettingsActions, WhileASessionIsReadOrScannedOnlyTheValuesChange) {
    for (Boolean* busy : {&LoadingSession, &Rescanning}) {
        OpenCoherence();
        *busy = On;
        A->SetPersistent(true);
        A->Forget();
        const Boolean before = ShowBpmCoherence;
        ToggleSetting(7);
        ToggleSetting(19);
        SetCoherenceDepthKnob(0);
        RunSettingAction(2);
        EXPECT_NE(ShowBpmCoherence, before);
        EXPECT_EQ(CoherenceDepth, 0);
        EXPECT_TRUE(A->Untouched());
        *busy = Off;
    }
}

TEST_F(SettingsActions, LanguageColourSetAndBiofeedbackAreTakenOver) {
    ChooseLanguage(16);
    SetColourScheme(4);
    EXPECT_EQ(LanguageIndex, 16);
    EXPECT_EQ(ColourSchemeIndex, 4);
    FillMidiDevices(lstMidiDevice);
    SwitchBiofeedback();
    EXPECT_EQ(MidiInPanels, On);
    SwitchBiofeedback();
    EXPECT_EQ(MidiInPanels, Off);
}

} // namespace
} // namespace pulselark
