#pragma once

#include "scenery/Scenery.h"

#include <QColor>
#include <QImage>
#include <QSizeF>

#include <cstdint>

/// What several sceneries have in their skies.
namespace pulselark {

/// Top and foot of the clouds in each light.
struct CloudColours {
    PerLight<QColor> Top, Foot;
};

/// How many clouds a picture of 16 x 9 has, how wide they are at most, the height of their strip (both in
/// thousandths of the picture's height), and how much of it they are spread over.
struct CloudCover {
    PerLight<int> Count;
    double Width, Height, Spread;
};

/// Paints a strip of clouds that repeats.
LitImage::PaintEnd CloudPainter(const CloudCover& cover, const CloudColours& colours, std::uint32_t seed);

/// A sun or a moon: a disc with a glow that grows with the light.
class SunPart {
public:
    /// The disc's radius in pixels and its colours; alpha is the strength of the glow.
    void Make(double radius, const PerLight<QColor>& colours);
    void Draw(QPainter& painter, double x, double y, double light);

private:
    double radius_ = 0;
    LitImage disc_;
};

/// Slanting rain; none where the light is above a third.
void DrawRain(QPainter& painter, QSizeF size, const SceneryView& view);

} // namespace pulselark
