#pragma once

#include "base/Controls.h"
#include "base/Numbers.h"

/// The chart of the window `frmGames`: channel A as one marker, whose height is the averaged coherence (0 to
/// 110 %) and whose place across is the interval from beat to beat (0.5 s at the left edge, 1.5 s at the
/// right). The history panels open it and move its marker; no session depends on it.
namespace pulselark {

extern Boolean GamesOpen; ///< the window is open; start 0

/// A marker on `picGame`, in pixels from its upper left corner.
struct GameMarker {
    double Left = 0;
    double Top = 0;
    double Size = 0;      ///< of its square, an eleventh of the chart's height
    bool Visible = false; ///< there are a peak and a chart
};
extern GameMarker imA;
extern Label labGame; ///< the coherence beside the marker, such as "43%"

/// The point of a marker that stands at its values, in parts of its square from the upper left corner.
inline constexpr double MarkerPointX = 0.6;
inline constexpr double MarkerPointY = 0.72;

/// Opens the window with the marker at a coherence (a ratio, 0.11 is 100 %).
void OpenGames(double coherence);
/// The same with the coherence of the second that the history panels show.
void OpenGamesFromHistory();
void CloseGames();

/// Draws background, grid and labels on `picGame`, and places the marker anew.
void DrawGameChart();
/// Takes the marker of an open chart to the averaged coherence of `AnalysisSecond` and to the last peak.
void MoveGameMarker();

/// Closes the chart and forgets the marker.
void ResetGames();

} // namespace pulselark
