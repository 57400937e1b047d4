#pragma once

#include "platform/Surface.h"
#include "platform/qt/QtSurfaceShapes.h"

#include <QPainter>

namespace pulselark {

/// A page of paper as a surface: everything goes to the printer as lines, areas and letters, so that it is
/// sharp at any resolution and its text can be found. Paper cannot be erased and holds no picture: clearing
/// does nothing, and a fill from pixel to pixel has nothing to run against.
class PrintSurface final : public Surface {
public:
    /// The painter's units are panel units, with the page's upper left corner at its origin; it must outlive
    /// the surface.
    PrintSurface(QPainter& painter, double width, double height);

    double Width() const override { return width_; }
    double Height() const override { return height_; }
    bool Persistent() const override { return true; }
    void SetPersistent(bool /*persistent*/) override {}
    void Clear() override {}
    void Refresh() override {}
    void StorePicture(const Surface& /*source*/) override {}
    double TextWidth(std::string_view text) const override;
    double TextHeight(std::string_view text) const override;
    void SetFont(std::string_view name, int size, bool bold) override;
    void SetDrawWidth(int width) override { drawWidth_ = width; }
    void SetForeColour(Colour colour) override { foreColour_ = colour; }
    Colour ForeColour() const override { return foreColour_; }
    void SetFillColour(Colour /*colour*/) override {}
    void SetFillStyleSolid() override {}
    void Line(double x1, double y1, double x2, double y2, Colour colour) override;
    void Curve(std::span<const PanelPoint> points, Colour colour) override;
    void FilledBox(double x1, double y1, double x2, double y2) override;
    void Print(double x, double y, std::string_view text) override;
    void FloodFill(int /*x*/, int /*y*/, Colour /*borderColour*/) override {}
    void StretchImage(const Image& image, double x, double y, double width, double height) override;
    void SetPageFont(double height, int weight) override { font_ = {height, weight}; }
    void Stroke(std::span<const PanelPoint> points, const Pen& pen) override;
    void FilledArea(std::span<const PanelPoint> points, Colour fill) override;
    void GradientBox(double x1, double y1, double x2, double y2, Colour top, Colour bottom) override;

private:
    QRectF Box(double x1, double y1, double x2, double y2) const;

    QPainter& painter_;
    double width_;
    double height_;
    int drawWidth_ = 1;
    Colour foreColour_ = 0;
    PageFont font_;
};

} // namespace pulselark
