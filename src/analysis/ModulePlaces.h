#pragma once

#include <utility>

namespace pulselark {

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

/// Place of the bar of band powers in front of an HRV panel; `textHeight` is that of its axis labels.
TwipsRect PowerBarPlace(double moduleWidth, const TwipsRect& panel, double textHeight);

} // namespace pulselark
