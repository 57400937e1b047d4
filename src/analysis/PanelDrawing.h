#pragma once

#include "base/Colour.h"
#include "base/Controls.h"
#include "base/Numbers.h"
#include "platform/Surface.h"

#include <span>
#include <string>

/// What all analysis panels share: grid steps, time labels, axes, the colours of a waterfall's layers, filled
/// curves, backgrounds and captions.
namespace pulselark {

/// Candidates of a grid step: 1, 2, 5, 10, 20, 50, and in the wide form 100, 200 as well.
enum class GridSteps { Narrow, Wide };

/// The smallest candidate whose lines lie at least `leastDistance` units apart when `count` values fill
/// `length` units; the largest candidate if none does.
Integer ChooseGridStep(double leastDistance, double length, double count, GridSteps candidates);

/// "mm:ss"; the hours are dropped, so the label starts again at each hour. Seconds from 0 on.
std::string FormatMinSec(Long seconds);

/// A value with one decimal, such as "0.5"; without the zero before the point if `bare`.
std::string FormatTenths(double value, bool bare);

/// Colours of one layer of a waterfall.
struct LayerColours {
    Colour Layer;
    Colour Shadow; ///< half-way to the panel's background
};
/// Layer 0 is the oldest, layer `depth` the newest.
LayerColours ColoursOfLayer(int layer, int depth);

/// Colour of the background picture of the scheme in use at its centre.
Colour PanelBackColour();

/// Modules in the order of their families.
enum class Module { EcgInput, Spectrum, Coherence, History, Hrv };

/// How a picture fills a surface.
enum class TileMode { Stretch, Repeat };

/// Paints a picture over a surface, stretched to its size or repeated from its upper left corner. A surface
/// of size 0 is left alone.
void TileImage(Surface& surface, const Image& image, TileMode mode);

/// Gives the panels of a module the background and the foreground of the scheme in use.
void PaintModuleBackground(Module module);

/// The font of axis labels.
void SetPanelFont(Surface& panel);

/// A caption at `left` over the top of a panel, as wide as its text.
void PlaceCaption(CaptionLabel& caption, Surface& panel, const std::string& text, double left, Colour colour);

/// Where a horizontal grid line at height y starts: at `left`, or right of the caption if it would run
/// through it.
double GridLineStart(const Surface& panel, double y, double left, const CaptionLabel& caption);

/// The vertical axis of a panel: values from 0 on, `UnitsInHeight` of them in the panel's height above the
/// baseline.
struct VerticalAxis {
    double UnitsInHeight; ///< 0 for no axis
    Integer Step;         ///< of the grid
    double TextHeight;    ///< height of "0": the baseline's y, and that of a label
    double PanelHeight;

    VerticalAxis(const Surface& panel, double unitsInHeight);
    double LineY(double value) const { return value * PanelHeight / UnitsInHeight + TextHeight; }
    /// Upper edge of the label of a value.
    double LabelY(double value) const { return LineY(value) + TextHeight / 2; }
    bool LabelFits(double value) const { return LabelY(value) <= PanelHeight; }
    /// Lines of round numbers are twice as thick.
    int LineWidth(double value) const;
};

/// Fills the area under a curve down to the baseline: closing lines at both ends in `border`, the colour the
/// curve was drawn in; the area in `fill`; then the baseline in the grid's colour from `gridLeft` on and the
/// closing lines in `fill`, so that no frame remains. `baselineLeft` is where the closing baseline starts,
/// `fillX` where the filling.
void FillUnderCurve(Surface& panel, std::span<const PanelPoint> curve, double baselineLeft, double fillX,
                    Colour border, Colour fill, double gridLeft);

/// Makes both panels non-persistent and empty, as long as a knob or a drag changes what they show.
void MakePassing(Surface& a, Surface& b);

/// Whether a drag of a scale is taken now: no file routine, no rescan, no recording whose screens are locked.
bool ScaleDragAllowed();

/// The second that a panel shows while a scale is dragged: during a recording the later of `RecordedSeconds`
/// and `SessionTick`, else `AnalysisSecond` as it stands.
void RefreshAnalysisSecond();

/// Gain of a drag position s, 100 to the power s / 100, and back.
double GainOfScale(double s);
double ScaleOfGain(double gain);

/// Units of the layout: 15 to the pixel.
inline constexpr double TwipsPerPixel = 15;

/// A knob's place on its track, 0 to 1, for a stored position of 0 to 1000.
double KnobPlace(Integer position);

} // namespace pulselark
