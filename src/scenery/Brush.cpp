#include "scenery/Brush.h"

#include <QLinearGradient>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace pulselark {

double Dice::Next() {
    state_ ^= state_ << 13;
    state_ ^= state_ >> 17;
    state_ ^= state_ << 5;
    constexpr double Count = 4294967296.0;
    return state_ / Count;
}

QColor MixColour(const QColor& from, const QColor& to, double part) {
    const auto mix = [part](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * part)); };
    return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue()),
            mix(from.alpha(), to.alpha())};
}

QColor WithAlpha(QColor colour, double alpha) {
    colour.setAlphaF(static_cast<float>(std::clamp(alpha, 0.0, 1.0)));
    return colour;
}

void FillVertical(QImage& image, std::span<const ColourStop> stops) {
    Dice dice(7);
    std::vector<float> noise(1021); // a prime, so that rows do not line up
    for (float& item : noise)
        item = static_cast<float>(dice.Next());
    std::size_t place = 0;
    std::size_t stop = 0;
    for (int y = 0; y < image.height(); ++y) {
        const double at = (y + 0.5) / image.height();
        while (stop + 2 < stops.size() && stops[stop + 1].At < at)
            ++stop;
        const ColourStop& from = stops[stop];
        const ColourStop& to = stops[stop + 1];
        const double linear = std::clamp((at - from.At) / (to.At - from.At), 0.0, 1.0);
        const auto part = [linear](int a, int b) { return static_cast<float>(a + (b - a) * linear); };
        const float red = part(from.Colour.red(), to.Colour.red());
        const float green = part(from.Colour.green(), to.Colour.green());
        const float blue = part(from.Colour.blue(), to.Colour.blue());
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const float grain = noise[place];
            place = place + 1 == noise.size() ? 0 : place + 1;
            row[x] = qRgb(static_cast<int>(red + grain), static_cast<int>(green + grain),
                          static_cast<int>(blue + grain));
        }
    }
}

std::vector<double> RidgeLine(int width, int cells, double roughness, bool sharp, std::uint32_t seed) {
    std::vector<double> line(static_cast<std::size_t>(width), 0.0);
    Dice dice(seed);
    double strength = 1;
    for (int octave = 0; octave < 7 && cells * 3 < width; ++octave, cells *= 2, strength *= roughness) {
        std::vector<double> knots(static_cast<std::size_t>(cells));
        for (double& knot : knots)
            knot = dice.Next();
        for (std::size_t x = 0; x < line.size(); ++x) {
            const double place = static_cast<double>(x) * cells / width;
            const auto left = static_cast<std::size_t>(place);
            double part = place - static_cast<double>(left);
            if (!sharp)
                part = (1 - std::cos(std::numbers::pi * part)) / 2;
            const double from = knots[left % knots.size()];
            const double to = knots[(left + 1) % knots.size()];
            line[x] += strength * (from + (to - from) * part);
        }
    }
    const auto [least, most] = std::minmax_element(line.begin(), line.end());
    const double low = *least;
    const double range = std::max(*most - low, 1e-9);
    for (double& item : line)
        item = (item - low) / range;
    return line;
}

double Ridge::At(double x) const {
    const auto count = static_cast<double>(Line.size());
    const double around = x - std::floor(x / count) * count;
    return Top + (1 - Line[std::min(static_cast<std::size_t>(around), Line.size() - 1)]) * Drop;
}

QPainterPath Ridge::Land(double bottom) const {
    const auto width = static_cast<int>(Line.size());
    QPainterPath path(QPointF(-1, bottom));
    constexpr int Step = 2; // the eye sees no corner between
    for (int x = -1; x <= width + Step; x += Step)
        path.lineTo(x, At(x));
    path.lineTo(width + Step, bottom);
    path.closeSubpath();
    return path;
}

void FillLand(QPainter& painter, const Ridge& ridge, double bottom, const QColor& top, const QColor& foot) {
    QLinearGradient gradient(0, ridge.Top, 0, bottom);
    gradient.setColorAt(0, top);
    gradient.setColorAt(1, foot);
    painter.fillPath(ridge.Land(bottom), gradient);
}

void ShadeSlopes(QPainter& painter, const Ridge& ridge, double depth, const QColor& light,
                 const QColor& shade) {
    const auto width = static_cast<int>(ridge.Line.size());
    const double reach = std::max(2.0, depth / 6);
    constexpr double Lean = 0.42; // strokes run down the slope, not straight down
    painter.save();
    painter.setClipPath(ridge.Land(ridge.Top + ridge.Drop + depth * 2));
    for (int x = -static_cast<int>(depth); x < width + depth; ++x) {
        const double slope = (ridge.At(x + reach) - ridge.At(x - reach)) / (2 * reach);
        const double strength = std::clamp(std::fabs(slope) * 1.5, 0.0, 1.0);
        const QColor colour = slope > 0 ? light : shade;
        const double top = ridge.At(x);
        const double length = depth * (0.3 + 0.7 * strength);
        const QPointF from(x, top - 1);
        const QPointF to(x + Lean * length * (slope > 0 ? 1 : -1), top + length);
        QLinearGradient gradient(from, to);
        gradient.setColorAt(0, WithAlpha(colour, colour.alphaF() * strength * 0.75));
        gradient.setColorAt(1, WithAlpha(colour, 0));
        painter.setPen(QPen(QBrush(gradient), 1.2));
        painter.drawLine(from, to);
    }
    painter.restore();
}

void PaintCloud(QPainter& painter, double x, double y, double width, const QColor& top, const QColor& foot,
                std::uint32_t seed) {
    Dice dice(seed);
    const double height = width * 0.34;
    QPainterPath cloud;
    cloud.setFillRule(Qt::WindingFill);
    constexpr int Puffs = 9;
    for (int i = 0; i < Puffs; ++i) {
        const double part = (i + 0.5) / Puffs * 2 - 1;
        const double rise = 1 - part * part;
        const double radius = width * (0.055 + 0.11 * rise * dice.Between(0.75, 1.15));
        cloud.addEllipse(
            QPointF(x + part * width * 0.40, y - radius * 0.9 - height * 0.22 * rise * dice.Next()),
            radius * 1.15, radius);
    }
    cloud.addRoundedRect(QRectF(x - width * 0.47, y - height * 0.26, width * 0.94, height * 0.26),
                         height * 0.13, height * 0.13);
    QLinearGradient gradient(0, y - height, 0, y);
    gradient.setColorAt(0, top);
    gradient.setColorAt(0.55, MixColour(top, foot, 0.55));
    gradient.setColorAt(1, WithAlpha(foot, foot.alphaF() * 0.15));
    painter.fillPath(cloud.simplified(), gradient);
}

void PaintRoundTree(QPainter& painter, double x, double foot, double height, const QColor& lit,
                    const QColor& dark, std::uint32_t seed) {
    Dice dice(seed);
    painter.setPen(Qt::NoPen);
    painter.setBrush(MixColour(dark, Qt::black, 0.25));
    painter.drawRect(QRectF(x - height * 0.03, foot - height * 0.35, height * 0.06, height * 0.37));
    constexpr int Leaves = 9;
    for (int layer = 0; layer < 2; ++layer) { // the lit leaves lie within the others, towards the light
        const double within = layer == 0 ? 1 : 0.6;
        painter.setBrush(layer == 0 ? dark : lit);
        for (int i = 0; i < Leaves; ++i) {
            const double angle = 6.28318530718 * i / Leaves;
            const double away = height * dice.Between(0.10, 0.19) * within;
            const double radius = height * dice.Between(0.11, 0.17) * (layer == 0 ? 1 : 0.72);
            const double side = std::cos(angle) * away + layer * height * 0.05;
            const double up = height * 0.62 + std::sin(angle) * away + layer * height * 0.06;
            painter.drawEllipse(QPointF(x + side, foot - up), radius, radius * 0.92);
        }
        painter.drawEllipse(QPointF(x + layer * height * 0.05, foot - height * (0.62 + 0.06 * layer)),
                            height * 0.16 * within, height * 0.16 * within);
    }
}

void PaintFir(QPainter& painter, double x, double foot, double height, const QColor& lit,
              const QColor& dark) {
    painter.setPen(Qt::NoPen);
    constexpr int Tiers = 5;
    for (int i = 0; i < Tiers; ++i) {
        const double low = foot - height * (0.08 + 0.17 * i);
        const double half = height * (0.21 - 0.034 * i);
        const double rise = height * 0.30;
        const QPointF peak(x, low - rise);
        const QPointF sag(x, low + half * 0.22);
        const std::array left{QPointF(x - half, low), sag, peak};
        const std::array right{QPointF(x + half, low), sag, peak};
        painter.setBrush(dark);
        painter.drawPolygon(left.data(), static_cast<int>(left.size()));
        painter.setBrush(lit);
        painter.drawPolygon(right.data(), static_cast<int>(right.size()));
    }
    painter.setBrush(dark);
    painter.drawRect(QRectF(x - height * 0.02, foot - height * 0.08, height * 0.04, height * 0.1));
}

void PaintGlow(QPainter& painter, double x, double y, double radius, const QColor& colour) {
    QRadialGradient gradient(x, y, radius);
    const double alpha = colour.alphaF();
    gradient.setColorAt(0, colour);
    gradient.setColorAt(0.25, WithAlpha(colour, alpha * 0.55));
    gradient.setColorAt(0.55, WithAlpha(colour, alpha * 0.18));
    gradient.setColorAt(1, WithAlpha(colour, 0));
    painter.fillRect(QRectF(x - radius, y - radius, 2 * radius, 2 * radius), gradient);
}

} // namespace pulselark
