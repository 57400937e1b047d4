#pragma once

#include "base/Numbers.h"

#include <array>
#include <string>

/// What the mode buttons `imBFC` show: which feedback mode is chosen and which runs, and their tool tips.
namespace pulselark {

inline constexpr int ModeCount = 4; ///< feedback modes 0 to 3, the first four of `imBFC`

extern Integer LastModeIndex; ///< level shown as running by the last selection, -1 for none; start -1
extern double LastMode;       ///< `FeedbackMode` at the end of the last selection; start -1
extern Integer ModeShown;     ///< level that the selector shows as running, -1 for none; start -1

/// Tool tips of the four modes, as `FeedbackEnabled` wants them.
extern std::array<std::string, ModeCount> imBFCTips;

/// Shows a level as running, -1 for none.
void DrawModeSelector(int index);

/// Shows the mode that `ModeRunning` says.
void ApplyModeState();

/// Sets the tool tips anew, after a change of `FeedbackEnabled` or of the language.
void SetModeTips();

/// Mode 0 to 3 runs, fed by a replay that has been started already.
void RunModeFromReplay(int mode);

/// No mode runs any more, and the selector shows none.
void EndModes();

/// Puts the above to its start values.
void ResetModeSelector();

} // namespace pulselark
