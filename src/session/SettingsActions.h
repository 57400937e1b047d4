#pragma once

#include "base/Numbers.h"

#include <span>
#include <string>

/// What the settings form does: 21 toggles, 4 actions, 5 knobs. Each change takes effect on the panels at
/// once. While a session is read or scanned only the values change, since all panels are drawn after it.
namespace pulselark {

// Toggles that are told apart by what they do beyond turning a value over.
inline constexpr int ToggleAutoScale = 2;
inline constexpr int ToggleBackground = 3;
inline constexpr int ToggleMultiSessions = 4;
inline constexpr int ToggleSeparator = 5; ///< shows, and has its tick, only with the one before
inline constexpr int ToggleSolidFill = 10;
inline constexpr int ToggleOctaveInFront = 11; ///< the same
inline constexpr int TogglePower = 13;         ///< "ms^2": always the unit that is set
inline constexpr int TogglePowerPerHz = 14;    ///< "ms^2 / Hz": only says that it is not available
inline constexpr int ToggleSolidGraphs = 19;
inline constexpr int ToggleHrvPower = 20;
inline constexpr int SettingToggleCount = 21;

/// The click on toggle `index`, 0 to 20; any other does nothing.
void ToggleSetting(int index);
/// Whether the tick of a toggle shows.
bool SettingOn(int index);
/// Whether the toggle itself shows.
bool SettingShown(int index);

enum SettingAction : int {
    ActionDefaultLayout,
    ActionSelectLanguage, ///< the form's own affair
    ActionChannelSelect,
    ActionSelectMonitor, ///< opens the monitor chooser, but not while a recording runs
};
inline constexpr int SettingActionCount = 4;

/// The click on an action. The channel action goes from mode 1 to 2, 3 and 1 again: mode 1 shows channel B,
/// mode 2 hides it, mode 3 leaves it.
void RunSettingAction(int index);
/// What stands on an action.
std::string SettingActionCaption(int index);

/// Chooses a colour set, 0 to 4; any other does nothing. The partner program hears of it; the panels are for
/// the window to lay out anew.
void SetColourScheme(int scheme);

/// Chooses one of the named languages, 0 to 16; any other does nothing. The texts are for the windows to set.
void ChooseLanguage(int language);

/// The biofeedback switch: the sound engine with the panels, on or off.
void SwitchBiofeedback();

inline constexpr Integer KnobEnd = 1000; ///< positions of a knob are 0 to this

// Knobs: store the position, held within the track, take over its value and draw the panels for a passing
// moment. The averaging recomputes the moving averages.
void SetSpectrumDepthKnob(Integer position);
void SetSpectrumStepKnob(Integer position);
void SetCoherenceDepthKnob(Integer position);
void SetCoherenceStepKnob(Integer position);
void SetMovingAverageKnob(Integer position);

/// The release of a knob: panels that showed a passing picture are drawn once more, to stay.
void EndKnobDrag();

/// One knob of the form.
struct SettingsKnob {
    const char* Name;     ///< of the knob in the form
    const char* Label;    ///< of the label with the value
    int Text;             ///< language text of its caption
    Integer& Position;    ///< 0 to 1000
    void (*Set)(Integer); ///< one of the above
    int (*Shown)();       ///< the value in use, as the user sees it
    int (*ShownAt)(Integer position);
    int Unit; ///< language text behind the value, or 0
};
inline constexpr std::size_t SettingsKnobCount = 5; ///< in the order of the setters
std::span<const SettingsKnob, SettingsKnobCount> SettingsKnobs();

/// The value as its label shows it, such as "7" or "4 sec.".
std::string KnobCaption(const SettingsKnob& knob);

/// The position at which the shown value is `steps` higher than now, in the middle of all that show it; the
/// end of the track if there is none.
Integer KnobSteppedBy(const SettingsKnob& knob, int steps);

} // namespace pulselark
