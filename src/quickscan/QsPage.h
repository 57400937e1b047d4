#pragma once

#include "session/MainBuffers.h"
#include "session/Settings.h"

/// The quick scan's page: drawn on `picQS`, on the screen and on paper by the same routines, from top to
/// bottom the title, the spectrum of the beat intervals, the coherence of the session, its histogram and the
/// score.
namespace pulselark {

/// Half-width of the spectrum's smoothing in bins, 0 to 16; kept with the settings.
inline Integer& QsSmoothing = QsSmoothingChannel;
inline constexpr Integer QsSmoothingMost = 16;

/// The fixed part of the page: paper, plots without data, texts; and the place of the smoothing slider. With
/// `fullLayout` the paper becomes the panel's stored picture; without, as for a printer, no paper is painted.
/// Where data follow, the texts come with them, so that no curve runs over a text.
void QsShowPage(bool fullLayout);

/// Measures the shown channel anew and draws everything that was measured. Nothing without a scan.
void QsAnalyseAndDraw();

/// The page of the panel from scratch, after a change of its size or of what it shows. A channel B that the
/// session does not have leaves the page empty of data.
void OpenQuickScanPanel();

/// The page on another surface, which stands for paper: its own colours are drawn, its ground is left alone
/// but for the plates behind texts. Like the panel it stays empty of data for a channel the session lacks.
/// The panel keeps its surface and is not drawn on; what was measured is the same afterwards.
void QsDrawOnPaper(class Surface& paper);

/// The pointer is over the page at (x, y), in units of the surface: within the spectrum plot the slider
/// shows.
void QsPointerMove(double x, double y);
void QsPointerLeave();

/// The slider is pressed or dragged at height y of the page, a part of it from its lower end for each
/// half-bin of smoothing. A change draws the page anew.
void QsSmoothingFromPointer(double y);

} // namespace pulselark
