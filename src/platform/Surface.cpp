#include "platform/Surface.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace pulselark {

namespace {

class NoSurfaceAtAll final : public Surface {
public:
    double Width() const override { return 0; }
    double Height() const override { return 0; }
    bool Persistent() const override { return false; }
    void SetPersistent(bool /*persistent*/) override {}
    void Clear() override {}
    void Refresh() override {}
    void StorePicture(const Surface& /*source*/) override {}
    double TextWidth(std::string_view /*text*/) const override { return 0; }
    double TextHeight(std::string_view /*text*/) const override { return 0; }
    void SetFont(std::string_view /*name*/, int /*size*/, bool /*bold*/) override {}
    void SetDrawWidth(int /*width*/) override {}
    void SetForeColour(Colour /*colour*/) override {}
    Colour ForeColour() const override { return 0; }
    void SetFillColour(Colour /*colour*/) override {}
    void SetFillStyleSolid() override {}
    void Line(double /*x1*/, double /*y1*/, double /*x2*/, double /*y2*/, Colour /*colour*/) override {}
    void FilledBox(double /*x1*/, double /*y1*/, double /*x2*/, double /*y2*/) override {}
    void Print(double /*x*/, double /*y*/, std::string_view /*text*/) override {}
    void FloodFill(int /*x*/, int /*y*/, Colour /*borderColour*/) override {}
    void StretchImage(const Image& /*image*/, double /*x*/, double /*y*/, double /*width*/,
                      double /*height*/) override {}
    void SetPageFont(double /*height*/, int /*weight*/) override {}
    void Stroke(std::span<const PanelPoint> /*points*/, const Pen& /*pen*/) override {}
    void FilledArea(std::span<const PanelPoint> /*points*/, Colour /*fill*/) override {}
    void GradientBox(double /*x1*/, double /*y1*/, double /*x2*/, double /*y2*/, Colour /*top*/,
                     Colour /*bottom*/) override {}
    void Arc(const CircleArc& /*arc*/, const Pen& /*pen*/) override {}
    void Sector(const CircleArc& /*arc*/, Colour /*fill*/) override {}
    void FramedBox(double /*x1*/, double /*y1*/, double /*x2*/, double /*y2*/, double /*radius*/,
                   Colour /*fill*/, const Pen& /*frame*/) override {}
};

} // namespace

void Surface::Curve(std::span<const PanelPoint> points, Colour colour) {
    for (std::size_t i = 1; i < points.size(); ++i)
        Line(points[i - 1].X, points[i - 1].Y, points[i].X, points[i].Y, colour);
}

void AppendArc(const CircleArc& arc, std::vector<PanelPoint>& points) {
    constexpr double OffTheCircle = 0.02;
    constexpr double FullTurn = 2 * std::numbers::pi;
    if (!(arc.Radius > 0) || !std::isfinite(arc.Start) || !std::isfinite(arc.End))
        return;
    const double turn = std::clamp(arc.End - arc.Start, -FullTurn, FullTurn);
    // A chord of angle a lies r (1 - cos(a / 2)) inside its arc.
    const double most = 2 * std::acos(std::max(0.5, 1 - OffTheCircle / arc.Radius));
    const int count = std::max(1, static_cast<int>(std::ceil(std::abs(turn) / most)));
    for (int i = 0; i <= count; ++i) {
        const double angle = arc.Start + turn * i / count;
        points.push_back(
            {arc.Centre.X + arc.Radius * std::cos(angle), arc.Centre.Y + arc.Radius * std::sin(angle)});
    }
}

void Surface::Arc(const CircleArc& arc, const Pen& pen) {
    std::vector<PanelPoint> points;
    AppendArc(arc, points);
    Stroke(points, pen);
}

void Surface::Sector(const CircleArc& arc, Colour fill) {
    std::vector<PanelPoint> points{arc.Centre};
    AppendArc(arc, points);
    FilledArea(points, fill);
}

void Surface::FramedBox(double x1, double y1, double x2, double y2, double radius, Colour fill,
                        const Pen& frame) {
    const auto [left, right] = std::minmax(x1, x2);
    const auto [low, high] = std::minmax(y1, y2);
    const double round = std::clamp(radius, 0.0, std::min(right - left, high - low) / 2);
    std::vector<PanelPoint> border;
    if (round > 0) {
        constexpr double Quarter = std::numbers::pi / 2;
        const PanelPoint centres[] = {{right - round, high - round},
                                      {left + round, high - round},
                                      {left + round, low + round},
                                      {right - round, low + round}};
        for (int corner = 0; corner < 4; ++corner)
            AppendArc({centres[corner], round, corner * Quarter, (corner + 1) * Quarter}, border);
    } else {
        border = {{right, high}, {left, high}, {left, low}, {right, low}};
    }
    border.push_back(border.front());
    FilledArea(border, fill);
    Stroke(border, frame);
}

Surface& NoSurface() {
    static NoSurfaceAtAll surface;
    return surface;
}

} // namespace pulselark
