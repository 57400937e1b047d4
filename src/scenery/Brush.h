#pragma once

#include "scenery/LitImage.h"

#include <QColor>
#include <QPainterPath>

#include <cstdint>
#include <span>
#include <vector>

/// What the sceneries are painted with. All of it happens once per size; lengths are pixels.
namespace pulselark {

/// Numbers that look thrown and are the same at every start.
class Dice {
public:
    explicit Dice(std::uint32_t seed) : state_(seed * 2654435761U + 1) {}
    double Next(); ///< 0 to below 1
    double Between(double low, double high) { return low + (high - low) * Next(); }

private:
    std::uint32_t state_;
};

struct ColourStop {
    double At;
    QColor Colour;
};

QColor MixColour(const QColor& from, const QColor& to, double part);
QColor WithAlpha(QColor colour, double alpha);

/// Fills a picture without transparency with the stops, from its top to its foot; dithered, since
/// large soft skies show their steps otherwise.
void FillVertical(QImage& image, std::span<const ColourStop> stops);

/// A line of land: height of each of `width` columns, 0 to 1, joining its own beginning at the end. `cells`:
/// how many rises it has; `roughness`: how much of each finer detail remains (0.35 soft to 0.6 rugged);
/// `sharp`: straight slopes instead of round ones.
std::vector<double> RidgeLine(int width, int cells, double roughness, bool sharp, std::uint32_t seed);

/// The land under a line, whose highest point lies at `top` and whose lowest at `top + drop`.
struct Ridge {
    std::vector<double> Line;
    double Top, Drop;

    double At(double x) const;
    QPainterPath Land(double bottom) const;
};

/// Fills the land with a gradient from its top down.
void FillLand(QPainter& painter, const Ridge& ridge, double bottom, const QColor& top, const QColor& foot);
/// Light on the slopes that look to the right, shade on the others, fading over `depth` below the line.
void ShadeSlopes(QPainter& painter, const Ridge& ridge, double depth, const QColor& light,
                 const QColor& shade);

/// A cloud with a flat foot, of the given width, its foot's centre at (x, y).
void PaintCloud(QPainter& painter, double x, double y, double width, const QColor& top, const QColor& foot,
                std::uint32_t seed);
void PaintRoundTree(QPainter& painter, double x, double foot, double height, const QColor& lit,
                    const QColor& dark, std::uint32_t seed);
void PaintFir(QPainter& painter, double x, double foot, double height, const QColor& lit, const QColor& dark);
/// A soft round light, the colour fading to nothing.
void PaintGlow(QPainter& painter, double x, double y, double radius, const QColor& colour);

/// Runs `paint(x)` for x and, so that what lies over an end of a repeated picture has its other half at the
/// other end, for x one width to the left and to the right.
template <class Paint>
void Around(double x, double width, Paint paint) {
    for (const double shift : {-width, 0.0, width})
        paint(x + shift);
}

} // namespace pulselark
