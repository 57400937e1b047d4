#pragma once

#include "base/Colour.h"

#include <span>
#include <string_view>
#include <vector>

namespace pulselark {

/// A position in panel units: pixels of the layout, x to the right, y upwards from 0 at the bottom.
struct PanelPoint {
    double X;
    double Y;
};

/// How a line of the page's drawing is drawn: colour, and width in panel units, which may be a fraction.
struct Pen {
    Colour Ink;
    double Width = 1;
};

/// A part of a circle: centre and radius in panel units, angles in radians from the positive x axis, growing
/// counterclockwise (y is upwards). It runs from `Start` to `End`, counterclockwise if End is the greater
/// one, else clockwise; more than one turn is one turn.
struct CircleArc {
    PanelPoint Centre;
    double Radius;
    double Start, End;
};

/// What every analysis panel, and the report, is drawn on. The origin is at the lower left and y grows
/// upwards; one unit is one pixel of the layout, whatever the density of the screen.
///
/// A surface shows a stored picture (its background) with the drawing on top. While it is persistent the
/// drawing is kept; otherwise it is meant for a passing moment, such as a drag of a scale.
class Surface {
public:
    Surface() = default;
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;
    virtual ~Surface() = default;

    /// Size in panel units. A surface of size 0 takes every call and draws nothing.
    virtual double Width() const = 0;
    virtual double Height() const = 0;

    virtual bool Persistent() const = 0;
    virtual void SetPersistent(bool persistent) = 0;

    /// Erases the drawing and keeps the stored picture.
    virtual void Clear() = 0;
    /// Shows the stored picture again, without what was drawn on top.
    virtual void Refresh() = 0;
    /// Makes what `source` shows now the stored picture of this surface, scaled to its size.
    virtual void StorePicture(const Surface& source) = 0;

    /// Size of a text in the current font.
    virtual double TextWidth(std::string_view text) const = 0;
    virtual double TextHeight(std::string_view text) const = 0;

    virtual void SetFont(std::string_view name, int size, bool bold) = 0;
    /// Width of lines in panel units.
    virtual void SetDrawWidth(int width) = 0;
    /// Colour of text, boxes and lines without a colour of their own.
    virtual void SetForeColour(Colour colour) = 0;
    virtual Colour ForeColour() const = 0;
    virtual void SetFillColour(Colour colour) = 0;
    virtual void SetFillStyleSolid() = 0;

    virtual void Line(double x1, double y1, double x2, double y2, Colour colour) = 0;
    void Line(double x1, double y1, double x2, double y2) { Line(x1, y1, x2, y2, ForeColour()); }
    /// Lines through all the points in their order. The same picture as single lines, drawn in one go.
    virtual void Curve(std::span<const PanelPoint> points, Colour colour);
    /// A box filled with the foreground colour.
    virtual void FilledBox(double x1, double y1, double x2, double y2) = 0;
    /// Text with its upper left corner at (x, y), in the foreground colour.
    virtual void Print(double x, double y, std::string_view text) = 0;
    /// Fills with the fill colour from a point up to the border colour. Device coordinates: column x, row 0
    /// at the top.
    virtual void FloodFill(int x, int y, Colour borderColour) = 0;
    /// Paints a picture scaled into the box whose lower left corner is (x, y).
    virtual void StretchImage(const Image& image, double x, double y, double width, double height) = 0;

    // Shapes and text of pages, sharp at any size and on paper. They take their colours as arguments, and
    // `Print` after `SetPageFont` keeps the foreground colour exactly.

    /// A font by its height in panel units, which may be a fraction (the size that type designers mean: a
    /// line of text is this high, capitals about 0.7 of it), and its weight, 400, 500 or 700. Holds for texts
    /// and their measures until the next `SetFont` or `SetPageFont`. Widths grow exactly with the height.
    virtual void SetPageFont(double height, int weight) = 0;
    /// Lines through all the points in their order, with round joins and ends, in their true width.
    virtual void Stroke(std::span<const PanelPoint> points, const Pen& pen) = 0;
    /// The area within the points, closed by itself, without an outline.
    virtual void FilledArea(std::span<const PanelPoint> points, Colour fill) = 0;
    /// A box filled with a vertical gradient, linear in sRGB.
    virtual void GradientBox(double x1, double y1, double x2, double y2, Colour top, Colour bottom) = 0;
    /// Part of a circle as a line; by default a stroke of short lines, less than 0.02 units off the circle.
    virtual void Arc(const CircleArc& arc, const Pen& pen);
    /// The area between a part of a circle and its centre; by default an area with such a border.
    virtual void Sector(const CircleArc& arc, Colour fill);
    /// A filled box with a frame; `radius` rounds its corners. By default an area and a stroke.
    virtual void FramedBox(double x1, double y1, double x2, double y2, double radius, Colour fill,
                           const Pen& frame);
};

/// The points of an arc, from its start to its end, less than 0.02 units off the circle; appended to
/// `points`.
void AppendArc(const CircleArc& arc, std::vector<PanelPoint>& points);

/// The surface of a panel that no window shows: size 0, nothing is drawn.
Surface& NoSurface();

} // namespace pulselark
