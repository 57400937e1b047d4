#include "analysis/ModulePlaces.h"

#include <algorithm>

namespace pulselark {

std::pair<TwipsRect, TwipsRect> PanelPlaces(double moduleWidth, double moduleHeight, double titleHeight,
                                            bool channelBPresent) {
    const double room = moduleHeight - titleHeight;
    const double left = 120;
    const double width = std::max(0.0, moduleWidth - 240);
    const double top = titleHeight + 120;
    const double height = std::max(0.0, channelBPresent ? room / 2 - 180 : room - 240);
    return {{left, top, width, height}, {left, top + height + 120, width, channelBPresent ? height : 0}};
}

TwipsRect PowerBarPlace(double moduleWidth, const TwipsRect& panel, double textHeight) {
    constexpr double BarWidth = 210;
    constexpr double Margin = 240;
    const double height = std::max(0.0, panel.Height - Margin - textHeight);
    return {moduleWidth - BarWidth - Margin, panel.Top + Margin - 60, BarWidth, height};
}

} // namespace pulselark
