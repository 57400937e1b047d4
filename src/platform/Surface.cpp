#include "platform/Surface.h"

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
};

} // namespace

void Surface::Curve(std::span<const PanelPoint> points, Colour colour) {
    for (std::size_t i = 1; i < points.size(); ++i)
        Line(points[i - 1].X, points[i - 1].Y, points[i].X, points[i].Y, colour);
}

Surface& NoSurface() {
    static NoSurfaceAtAll surface;
    return surface;
}

} // namespace pulselark
