#pragma once

#include "base/Colour.h"
#include "session/MainBuffers.h"

/// The parts of the quick scan's page. Each draws on `picQS`; `QsShowPage` and `QsAnalyseAndDraw` call them
/// in their order.
namespace pulselark {

struct PagePlot;

// The fixed part.
void QsDrawPlotGrid(const PagePlot& plot);
void QsDrawBellCurve();
void QsDrawHistogramFrame();
void QsDrawGaugeFrame();
/// Title, captions and the labels of all scales.
void QsDrawPageText();

// What was measured.
void QsDrawCoherence(const SecondsBuffer& series);
void QsDrawSpectrum();
void QsDrawReferenceCurve();
void QsDrawHistogram();
void QsDrawScoreGauge();
void QsPrintMeanRate();
void QsDrawStatsBox();
void QsDrawBalancePie();
void QsPrintBandValues();
void QsPrintAverage();

/// A heart around (x, y), `size` units to each side, as a line; and a filled one.
void QsDrawHeart(double x, double y, double size, double lineWidth, Colour colour);
void QsFillHeart(double x, double y, double size, Colour colour);

} // namespace pulselark
