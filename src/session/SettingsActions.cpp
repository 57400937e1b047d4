#include "session/SettingsActions.h"

#include "analysis/CoherencePanel.h"
#include "analysis/ColourSchemes.h"
#include "analysis/GCoherence.h"
#include "analysis/History.h"
#include "analysis/HrvPanel.h"
#include "analysis/SpectrumPanel.h"
#include "feedback/MidiSwitches.h"
#include "feedback/SendAppData.h"
#include "platform/Platform.h"
#include "quickscan/QsPage.h"
#include "session/LanguageTable.h"
#include "session/Layout.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/MonitorChoice.h"
#include "session/PanelSurfaces.h"
#include "session/RedrawPanels.h"
#include "session/Settings.h"

#include <algorithm>
#include <array>
#include <utility>

namespace pulselark {

namespace {

bool PanelsStandStill() {
    return LoadingSession != Off || Rescanning != Off;
}

void DrawCoherence() {
    DrawCoherenceA();
    DrawCoherenceB();
}

// What a label says of the session, behind its name or alone, in the language that has been chosen.
void SayAnew(Label& label, Integer before) {
    constexpr std::array<int, 12> Texts{
        TextReady,          TextNoMonitorChosen, TextRecording,      TextRecordingStopped,
        TextReplay,         TextReplayEnded,     TextSaved,          TextRecovered,
        TextConnectionLost, TextConnectionLamp,  TextMonitorWaiting, TextRecordingAutoEnded};
    std::string& caption = label.Caption;
    for (const int text : Texts) {
        const std::string old = LanguageTable(before, text);
        if (old.empty() || !caption.ends_with(old))
            continue;
        caption.replace(caption.size() - old.size(), old.size(), LanguageText(text));
        return;
    }
}

void LayOutPanels() {
    OpenAllPanels(true);
}

void LayOutHrv() {
    OpenHrvPanel(true);
}

struct Toggle {
    Boolean* Value;
    void (*Draw)() = nullptr;
};

// "ms^2" and "ms^2 / Hz" are no toggles of a value.
const std::array<Toggle, SettingToggleCount> Toggles{{
    {&ShowAboutAtStart},
    {&AutoLoadPrevConfig},
    {&AutoScaleAll},
    {&ShowBackground},
    {&AllowMultiSessions},
    {&InsertSeparator},
    {&LockScreens},
    {&ShowBpmCoherence, &DrawCoherence},
    {&ShowGoldenRatio, &DrawCoherence},
    {&ShowOctaveRatio, &DrawCoherence},
    {&SolidFillGraph, &DrawCoherence},
    {&OctaveInFront, &DrawCoherence},
    {&AutoEndSession},
    {nullptr},
    {nullptr},
    {&QsShowPie, &OpenQuickScanPanel},
    {&QsShowBands, &OpenQuickScanPanel},
    {&QsShowReference, &OpenQuickScanPanel},
    {&QsShowBpm, &OpenQuickScanPanel},
    {&SolidGraphs, &LayOutPanels},
    {&ShowHrvPower, &LayOutHrv},
}};

void StepChannelMode() {
    ChannelMode = static_cast<Integer>(ChannelMode == 1 || ChannelMode == 2 ? ChannelMode + 1 : 1);
    labChannelMode.Caption = LanguageText(TextChannelModeBase + ChannelMode);
    if (ChannelMode == 1)
        ChannelBPresent = On;
    if (ChannelMode == 2)
        ChannelBPresent = Off;
    if (PanelsStandStill())
        return;
    SmoothSeries(); // those of channel B are not kept up while it is hidden
    OpenAllPanels(true);
}

// Stores a knob's position and takes over its value.
template <class Value>
void TurnKnob(Integer& knob, Value& value, Integer position, Value (*fromKnob)(Integer), void (*redraw)()) {
    knob = std::clamp<Integer>(position, 0, KnobEnd);
    value = fromKnob(knob);
    if (!PanelsStandStill())
        redraw();
}

void SmoothAndRedrawHistory() {
    SmoothSeries();
    RedrawHistory();
}

// The scales on which a spacing is shown: both run from 8 to 100.
constexpr double SpectrumStepUnit = 45.8;
constexpr double CoherenceStepScale = 6837;

int ShownSpectrumStep(Integer step) {
    return static_cast<int>(Round(step / SpectrumStepUnit));
}
int ShownCoherenceStep(double step) {
    return static_cast<int>(Round(step * CoherenceStepScale));
}

const std::array<SettingsKnob, SettingsKnobCount> Knobs{{
    {"picSwdUp", "labSwd", TextKnobWaterfallDepth, SpectrumDepthKnob, &SetSpectrumDepthKnob,
     [] { return SpectrumDepth + 1; }, [](Integer at) { return SpectrumDepthFromKnob(at) + 1; }, 0},
    {"picSwsUp", "labSws", TextKnobWaterfallSpacing, SpectrumStepKnob, &SetSpectrumStepKnob,
     [] { return ShownSpectrumStep(SpectrumStep); },
     [](Integer at) { return ShownSpectrumStep(SpectrumStepFromKnob(at)); }, 0},
    {"picGCwdUp", "labGCwd", TextKnobWaterfallDepth, CoherenceDepthKnob, &SetCoherenceDepthKnob,
     [] { return CoherenceDepth + 1; }, [](Integer at) { return CoherenceDepthFromKnob(at) + 1; }, 0},
    {"picGCwsUp", "labGCws", TextKnobWaterfallSpacing, CoherenceStepKnob, &SetCoherenceStepKnob,
     [] { return ShownCoherenceStep(CoherenceStep); },
     [](Integer at) { return ShownCoherenceStep(CoherenceStepFromKnob(at)); }, 0},
    {"picHisAvUp", "labHisAv", TextKnobAveraging, MovingAverageKnob, &SetMovingAverageKnob,
     [] { return MovingAverageWidth + 1; }, [](Integer at) { return MovingAverageFromKnob(at) + 1; },
     TextSecondsShort},
}};

} // namespace

void ToggleSetting(int index) {
    if (index < 0 || index >= SettingToggleCount)
        return;
    if (index == TogglePower)
        SpectrumPerHz = Off;
    if (index == TogglePowerPerHz)
        ThePlatform().Messages.Show(LanguageText(TextUnitNotAvailable), ButtonOK);
    const Toggle& toggle = Toggles[static_cast<std::size_t>(index)];
    if (toggle.Value == nullptr)
        return;
    *toggle.Value = static_cast<Boolean>(~*toggle.Value);
    if (toggle.Draw != nullptr && !PanelsStandStill())
        toggle.Draw();
}

bool SettingOn(int index) {
    if (index < 0 || index >= SettingToggleCount)
        return false;
    if (index == TogglePower)
        return SpectrumPerHz == Off;
    if (index == TogglePowerPerHz)
        return SpectrumPerHz != Off;
    return SettingShown(index) && *Toggles[static_cast<std::size_t>(index)].Value != Off;
}

bool SettingShown(int index) {
    if (index == ToggleSeparator)
        return AllowMultiSessions != Off;
    if (index == ToggleOctaveInFront)
        return SolidFillGraph != Off;
    return index >= 0 && index < SettingToggleCount;
}

void RunSettingAction(int index) {
    if (index == ActionDefaultLayout)
        DefaultLayout();
    if (index == ActionChannelSelect)
        StepChannelMode();
    if (index == ActionSelectMonitor)
        OpenMonitorChooser();
}

std::string SettingActionCaption(int index) {
    std::string caption = LanguageText(TextActionDefaultConfig + index);
    if (index == ActionChannelSelect)
        caption += LanguageText(TextChannelModeBase + ChannelMode);
    return caption;
}

void SetColourScheme(int scheme) {
    if (scheme < 0 || scheme >= ColourSchemeCount)
        return;
    ColourSchemeIndex = static_cast<Integer>(scheme);
    SendAppCommand(CmdStyle + scheme);
}

void ChooseLanguage(int language) {
    if (language < 0 || language >= NamedLanguageCount)
        return;
    const Integer before = std::exchange(LanguageIndex, static_cast<Integer>(language));
    SayAnew(labStatus, before);
    SayAnew(labConnection, before);
}

void SwitchBiofeedback() {
    ToggleMidiPanels();
}

void SetSpectrumDepthKnob(Integer position) {
    TurnKnob(SpectrumDepthKnob, SpectrumDepth, position, &SpectrumDepthFromKnob, &RedrawSpectrum);
}

void SetSpectrumStepKnob(Integer position) {
    TurnKnob(SpectrumStepKnob, SpectrumStep, position, &SpectrumStepFromKnob, &RedrawSpectrum);
}

void SetCoherenceDepthKnob(Integer position) {
    TurnKnob(CoherenceDepthKnob, CoherenceDepth, position, &CoherenceDepthFromKnob, &RedrawCoherence);
}

void SetCoherenceStepKnob(Integer position) {
    TurnKnob(CoherenceStepKnob, CoherenceStep, position, &CoherenceStepFromKnob, &RedrawCoherence);
}

void SetMovingAverageKnob(Integer position) {
    TurnKnob(MovingAverageKnob, MovingAverageWidth, position, &MovingAverageFromKnob,
             &SmoothAndRedrawHistory);
}

void EndKnobDrag() {
    const auto keep = [](Surface& a, Surface& b, void (*drawA)(), void (*drawB)()) {
        if (a.Persistent() && b.Persistent())
            return;
        a.SetPersistent(true);
        b.SetPersistent(true);
        if (PanelsStandStill())
            return;
        drawA();
        drawB();
    };
    keep(*picSA, *picSB, &DrawSpectrumA, &DrawSpectrumB);
    keep(*picGCA, *picGCB, &DrawCoherenceA, &DrawCoherenceB);
}

std::span<const SettingsKnob, SettingsKnobCount> SettingsKnobs() {
    return Knobs;
}

std::string KnobCaption(const SettingsKnob& knob) {
    return std::to_string(knob.Shown()) + (knob.Unit == 0 ? "" : LanguageText(knob.Unit));
}

Integer KnobSteppedBy(const SettingsKnob& knob, int steps) {
    const int least = knob.ShownAt(0);
    const int most = knob.ShownAt(KnobEnd);
    const int wanted = std::clamp(knob.Shown() + steps, least, most);
    if (wanted == least)
        return 0;
    if (wanted == most)
        return KnobEnd;
    Integer first = 0;
    while (knob.ShownAt(first) < wanted)
        ++first;
    Integer last = first;
    while (knob.ShownAt(static_cast<Integer>(last + 1)) == wanted)
        ++last;
    return static_cast<Integer>((first + last) / 2);
}

} // namespace pulselark
