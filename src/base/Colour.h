#pragma once

#include <cstdint>
#include <vector>

namespace pulselark {

/// A colour as the system's tables and files hold it: 24 bits, blue in the high byte (0xBBGGRR).
using Colour = std::uint32_t;

inline constexpr int RedOf(Colour c) {
    return static_cast<int>(c & 0xFFU);
}
inline constexpr int GreenOf(Colour c) {
    return static_cast<int>((c >> 8U) & 0xFFU);
}
inline constexpr int BlueOf(Colour c) {
    return static_cast<int>((c >> 16U) & 0xFFU);
}

/// Channels 0 to 255.
inline constexpr Colour MakeColour(int red, int green, int blue) {
    return static_cast<Colour>(red) | (static_cast<Colour>(green) << 8U) | (static_cast<Colour>(blue) << 16U);
}

/// The colour half-way between two: each channel is the mean of the two, rounded with ties to even.
Colour MixColours(Colour a, Colour b);

/// A picture made by the program: `Width` x `Height` pixels, row 0 at the top.
struct Image {
    int Width = 0;
    int Height = 0;
    std::vector<Colour> Pixels;

    /// Colour of one pixel; positions outside are held at the nearest edge. An empty picture is black.
    Colour PixelAt(int x, int y) const;
};

/// A point of a colour ramp: `Position` 0 to 1 along the ramp.
struct ColourStop {
    double Position;
    Colour Value;
};

/// A horizontal (or vertical) ramp that runs linearly in sRGB between its stops, the first at 0, the last
/// at 1.
Image MakeRamp(int width, int height, bool horizontal, const std::vector<ColourStop>& stops);

} // namespace pulselark
