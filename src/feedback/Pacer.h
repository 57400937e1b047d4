#pragma once

#include "base/Controls.h"

#include <string>

/// The settings of the training, and the wave that shows a breath: in-breath and out-breath are the two
/// halves of a cosine, their lengths in the ratio of the balance. The pacer itself is drawn by the scenery
/// program, which is told rate and balance.
namespace pulselark {

// Labels of the settings form.
extern Label labBR;            ///< breathing rate
extern Label labBB;            ///< balance as a ratio
extern Label labFibo;          ///< shows while the ratio is one of neighbours, or near ones, of the series
extern Label labBRB;           ///< phase times
extern Label labDIBFTime;      ///< interval of the index
extern Label labVol;           ///< volume
extern Label labAutoPlayMusic; ///< the two switches
extern Label labAutoStartBT;

extern double BalanceDrawn;          ///< balance that the wave shows; 0 draws it anew; start 0
extern Boolean TrainingSettingsOpen; ///< the settings form is open; start 0

// Ends of the scroll bars; the first two count tenths.
inline constexpr int LeastRate = 20;
inline constexpr int MostRate = 600;
inline constexpr int LeastBalance = 10;
inline constexpr int MostBalance = 100;
inline constexpr int LeastInterval = 4;
inline constexpr int MostInterval = 61; ///< stands for the whole session
inline constexpr int MostVolume = 100;

/// A scroll bar has been moved to `value`; values beyond its ends are held there.
void MoveBreathingRate(int value);    ///< hsBR, tenths of a breath per minute
void MoveBreathingBalance(int value); ///< hsBB, tenths
void MoveIndexInterval(int value);    ///< hsDIBF, seconds
void MoveVolume(int value);           ///< hsAdjustVol, percent

/// The balance goes to the golden mean.
void ChoosePhi();

void ToggleAutoPlayMusic();
/// Switching it off switches the pacer off.
void ToggleAutoStartBreathing();

/// The next of the three backgrounds of the training view.
void NextPanelBackground();

/// Draws the grid and the axes of `picBWave` once, over the picture that it has, and keeps them. The
/// surface's own scale runs from -10 to 110 both ways.
void SetUpBreathingWave();

/// Reads the balance as a ratio, where it is one, and takes over the ratio's exact value; draws the wave if
/// the balance has changed; shows the phase times; tells the scenery the balance.
void DrawBreathingWave();

/// Sets every label of the form from the settings. The texts of the two switches are shown too.
void ShowTrainingSettings();

/// Puts the above to its start values.
void ResetPacer();

} // namespace pulselark
