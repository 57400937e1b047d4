#pragma once

#include "platform/Surface.h"
#include "platform/qt/QtSurfaceShapes.h"

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QString>

#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace pulselark {

/// A font of the panels: the two names and sizes that panels use, as fonts of this system.
QFont PanelFont(std::string_view name, int size, bool bold);

/// A surface on a picture in memory, sharp at any density of the screen. The owner gives it its size and
/// shows its picture; `OnDrawn` is called when a drawing has begun to change it.
///
/// A fill whose border is the curve drawn last, closed by lines of its colour, fills exactly the area under
/// that curve, since antialiased curves leave no border to run against; any other fill goes from pixel to
/// pixel. Straight grid lines lie on whole device pixels; curves are antialiased; text follows the ink rule
/// against the stored picture, while lines keep their exact colours.
class QtSurface final : public Surface {
public:
    std::function<void()> OnDrawn;

    /// Size in panel units and device pixels per unit. A new size empties the surface.
    void Resize(int width, int height, double density);
    /// Makes a picture of the surface's size in device pixels the stored one, and shows it.
    void StoreImage(const QImage& picture);
    /// The picture as it stands; its device pixel ratio is the density.
    const QImage& Picture() const;

    double Width() const override { return width_; }
    double Height() const override { return height_; }
    bool Persistent() const override { return persistent_; }
    void SetPersistent(bool persistent) override { persistent_ = persistent; }
    void Clear() override;
    void Refresh() override;
    void StorePicture(const Surface& source) override;
    double TextWidth(std::string_view text) const override;
    double TextHeight(std::string_view text) const override;
    void SetFont(std::string_view name, int size, bool bold) override;
    void SetDrawWidth(int width) override { drawWidth_ = width; }
    void SetForeColour(Colour colour) override { foreColour_ = colour; }
    Colour ForeColour() const override { return foreColour_; }
    void SetFillColour(Colour colour) override { fillColour_ = colour; }
    void SetFillStyleSolid() override {}
    void Line(double x1, double y1, double x2, double y2, Colour colour) override;
    void Curve(std::span<const PanelPoint> points, Colour colour) override;
    void FilledBox(double x1, double y1, double x2, double y2) override;
    void Print(double x, double y, std::string_view text) override;
    void FloodFill(int x, int y, Colour borderColour) override;
    void StretchImage(const Image& image, double x, double y, double width, double height) override;

    // Shapes and text of pages: QtSurfacePage.cpp.
    void SetPageFont(double height, int weight) override;
    void Stroke(std::span<const PanelPoint> points, const Pen& pen) override;
    void FilledArea(std::span<const PanelPoint> points, Colour fill) override;
    void GradientBox(double x1, double y1, double x2, double y2, Colour top, Colour bottom) override;

private:
    QPainter& Painter();
    void EndPainting() const;
    bool Empty() const { return image_.isNull(); }
    QPointF ToDevice(double x, double y) const { return {x, height_ - y}; }
    void GridLine(double x1, double y1, double x2, double y2, Colour colour);
    Colour Ink(Colour colour);
    void PrintPageText(double x, double y, std::string_view text);
    void NoteBackdrop(const Image& image);
    bool FillOutline(Colour borderColour);
    void FillPixels(int x, int y, Colour borderColour);

    int width_ = 0;
    int height_ = 0;
    double density_ = 1;
    bool persistent_ = true;
    int drawWidth_ = 1;
    Colour foreColour_ = 0;
    Colour fillColour_ = 0;
    QFont font_ = PanelFont("MS Sans Serif", 8, false);
    PageFont pageFont_; // of height 0 while a font of the panels holds
    QImage image_;
    QImage stored_;
    mutable std::unique_ptr<QPainter> painter_;
    std::vector<Colour> backdrop_;
    std::map<Colour, Colour> inks_;
    std::vector<QPointF> points_; // kept between curves, so that drawing one allocates nothing
    // The curve drawn last, in device coordinates, and its closing lines: what a fill with its colour as
    // border fills.
    std::vector<QPointF> outline_;
    Colour outlineColour_ = 0;
    double outlineBase_ = 0;
};

} // namespace pulselark
