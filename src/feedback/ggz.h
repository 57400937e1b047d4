#pragma once

#include "base/Controls.h"

#include <array>

/// The training view: the panel `picGGZ` with the histograms of the coherence, their scores, and the bell
/// that a well-trained heart fills.
namespace pulselark {

/// The scores in figures: 0 the session's, 1 the index, which is empty in every mode but 3.
extern std::array<Label, 2> labDI;

/// Size of the view's artwork, 33, 40 or 50; the width of its bars goes by it. Start 50.
extern Integer WindowScale;

// Proportions of the panel, as shares of its width and height, y downwards from the top.
inline constexpr double BarRowCentre = 0.606;
inline constexpr double BarRowSpan = 0.208; ///< ten steps of 10 %
inline constexpr double BarBase = 0.835;
inline constexpr double BarHeight = 0.66;
inline constexpr std::array ScoreLeft{0.744, 0.863}; ///< score bars: session, index
inline constexpr double ScoreWidth = 0.023;

/// One second of the training, after `AnalysisSecond` has been set: both histograms, their scores, the value
/// for the scenery, the bars and the song line.
void TickTraining();

/// Draws the panel once more as the second left it, for a new size: nothing is sent.
void RedrawTraining();

/// Draws the bars of `CoherenceBins`: slot 0 the session, slot 1 the sliding window, which shows in mode 3
/// only. A bin with a single value is left out: one stray second does not show.
void DrawCoherenceBars(int slot);

/// Draws the reference bell over the whole of `picSD`: the normal distribution from -3 to 3.
void DrawBellCurve();

/// Places the panel and the mode row in the main window as it is now, and draws the bell.
void LayoutTrainingPanel();

/// Where the mode row and the panel stand in the main window, twips.
struct TrainingPlaces {
    float Left = 0;
    float Width = 0;
    float RowTop = 0;
    float RowHeight = 0;
    float PanelTop = 0;
    float PanelHeight = 0;
};
extern TrainingPlaces picGGZPlace;

/// Puts scores and captions to their start values.
void ResetTraining();

/// Ends the music and, a little later, the scrolling of the scenery.
void StopMusicAndScenery();
/// The scenery shows again what a file dialog has hidden.
void RestoreScenery();

} // namespace pulselark
