#pragma once

#include "base/Colour.h"
#include "base/Numbers.h"
#include "platform/Surface.h"

#include <string>
#include <utility>

/// What all analysis panels share: grid steps, time labels, the colours of a waterfall's layers, the
/// background and the places of a module's two panels.
namespace pulselark {

/// Candidates of a grid step: 1, 2, 5, 10, 20, 50, and in the wide form 100, 200 as well.
enum class GridSteps { Narrow, Wide };

/// The smallest candidate whose lines lie at least `leastDistance` units apart when `count` values fill
/// `length` units; the largest candidate if none does.
Integer ChooseGridStep(double leastDistance, double length, double count, GridSteps candidates);

/// "mm:ss"; the hours are dropped, so the label starts again at each hour. Seconds from 0 on.
std::string FormatMinSec(Long seconds);

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

/// Gives the panels of a module the background and the foreground of the scheme in use.
void PaintModuleBackground(Module module);

/// Units of the layout: 15 to the pixel.
inline constexpr double TwipsPerPixel = 15;

/// A rectangle inside a module, in twips from the module's upper left corner.
struct TwipsRect {
    double Left;
    double Top;
    double Width;
    double Height;
};

/// Places of the two panels of a module of the given size with a title bar of the given height. Without
/// channel B the first fills the module and the second has no height.
std::pair<TwipsRect, TwipsRect> PanelPlaces(double moduleWidth, double moduleHeight, double titleHeight,
                                            bool channelBPresent);

} // namespace pulselark
