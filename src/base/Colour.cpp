#include "base/Colour.h"

#include "base/Numbers.h"

#include <algorithm>
#include <cstddef>

namespace pulselark {

namespace {

int Between(int from, int to, double share) {
    return static_cast<int>(Round(from + (to - from) * share));
}

Colour RampColour(const std::vector<ColourStop>& stops, double position) {
    for (std::size_t i = 1; i < stops.size(); ++i) {
        const ColourStop& a = stops[i - 1];
        const ColourStop& b = stops[i];
        if (position > b.Position)
            continue;
        const double span = b.Position - a.Position;
        const double share = span > 0 ? (position - a.Position) / span : 1.0;
        return MakeColour(Between(RedOf(a.Value), RedOf(b.Value), share),
                          Between(GreenOf(a.Value), GreenOf(b.Value), share),
                          Between(BlueOf(a.Value), BlueOf(b.Value), share));
    }
    return stops.back().Value;
}

} // namespace

Colour MixColours(Colour a, Colour b) {
    const auto mean = [](int x, int y) { return static_cast<int>(Round((x + y) / 2.0)); };
    return MakeColour(mean(RedOf(a), RedOf(b)), mean(GreenOf(a), GreenOf(b)), mean(BlueOf(a), BlueOf(b)));
}

Colour Image::PixelAt(int x, int y) const {
    if (Pixels.empty())
        return 0;
    const int column = std::clamp(x, 0, Width - 1);
    const int row = std::clamp(y, 0, Height - 1);
    return Pixels[static_cast<std::size_t>(row) * static_cast<std::size_t>(Width) +
                  static_cast<std::size_t>(column)];
}

Image MakeRamp(int width, int height, bool horizontal, const std::vector<ColourStop>& stops) {
    Image image{width, height, {}};
    image.Pixels.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const double position =
                horizontal ? x / std::max(1.0, width - 1.0) : y / std::max(1.0, height - 1.0);
            image.Pixels.push_back(RampColour(stops, position));
        }
    }
    return image;
}

} // namespace pulselark
