#pragma once

#include "base/Numbers.h"

/// The course of the session on `picHisA` and `picHisB`: the averaged coherence and heart rate of the last
/// seconds on one grid with two scales, percent and beats per minute (0 % is 40, 100 % is 90). The newest
/// second stands at the right edge.
namespace pulselark {

inline constexpr Integer HistoryStyleMax = 9;

extern double HistoryGain;         ///< vertical gain, 100^(s / 100) with s from 85 to 130; start 100
extern Integer HistorySpanSeconds; ///< seconds across the panel, 60^(t / 100) with t from 56 to 144; start 60
/// Drawing style: 1 coherence, 2 heart rate, 3 both as lines; 4, 5, 8 and 9 the same filled (9 with the
/// coherence behind), 6 the coherence filled and 7 the heart rate filled under the other's line; start 3.
extern Integer HistoryStyle;
extern Boolean HistoryForceRedraw; ///< the next drawings happen even in the same second; start 0
extern Boolean ScaleDragging;      ///< a drag of the scale goes on; start 0

/// Draws a panel when its second, or one of its scales, has changed.
void DrawHistoryA();
void DrawHistoryB();

/// Draws one series: `points` seconds, `secondWidth` panel units each. Nothing for a style without it. The
/// rate sets `labBPMA` to the mean of what it shows.
void DrawHistoryCoherenceA(Long points, double secondWidth);
void DrawHistoryCoherenceB(Long points, double secondWidth);
void DrawHistoryRateA(Long points, double secondWidth);
void DrawHistoryRateB(Long points, double secondWidth);

/// Draws both panels even if they show this second already.
void RedrawHistory();

/// Lays the module's panels out, gives them background and captions; a second other than 0 is drawn.
void OpenHistoryPanel(Long second);

/// Mouse on a panel, x and y in panel units: `button` 0 anchors, 1 drags; upwards raises the gain, to the
/// right widens the span.
void DragHistoryScale(int button, double x, double y);
/// The release of a drag: the panels are drawn once more, to stay.
void EndHistoryDrag();

/// Takes over a style, held within 1 and 9, and draws both panels.
void SetHistoryStyle(int style);

/// Puts the display settings above to their start values.
void ResetHistoryDisplay();

} // namespace pulselark
