#include "platform/qt/PrintSurface.h"

#include "platform/qt/QtColour.h"
#include "platform/qt/QtSurface.h"

#include <array>

namespace pulselark {

namespace {

QString ToText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

PrintSurface::PrintSurface(QPainter& painter, double width, double height)
    : painter_(painter), width_(width), height_(height) {
    SetFont("MS Sans Serif", 8, false);
}

double PrintSurface::TextWidth(std::string_view text) const {
    return font_.Width(ToText(text));
}

double PrintSurface::TextHeight(std::string_view /*text*/) const {
    return font_.Height;
}

// A font of the panels, as high as its lines are on the screen.
void PrintSurface::SetFont(std::string_view name, int size, bool bold) {
    const QFont font = PanelFont(name, size, bold);
    font_ = {static_cast<double>(font.pixelSize()), font.weight()};
}

void PrintSurface::Line(double x1, double y1, double x2, double y2, Colour colour) {
    const std::array<PanelPoint, 2> ends{{{x1, y1}, {x2, y2}}};
    Curve(ends, colour);
}

void PrintSurface::Curve(std::span<const PanelPoint> points, Colour colour) {
    Stroke(points, {colour, static_cast<double>(drawWidth_)});
}

QRectF PrintSurface::Box(double x1, double y1, double x2, double y2) const {
    return QRectF(QPointF(x1, height_ - y1), QPointF(x2, height_ - y2)).normalized();
}

void PrintSurface::FilledBox(double x1, double y1, double x2, double y2) {
    painter_.fillRect(Box(x1, y1, x2, y2), ToQColor(foreColour_));
}

void PrintSurface::Print(double x, double y, std::string_view text) {
    font_.Print(painter_, QPointF(x, height_ - y), ToText(text), ToQColor(foreColour_));
}

void PrintSurface::StretchImage(const Image& image, double x, double y, double width, double height) {
    if (!image.Pixels.empty())
        painter_.drawImage(Box(x, y, x + width, y + height), ToQImage(image));
}

void PrintSurface::Stroke(std::span<const PanelPoint> points, const Pen& pen) {
    StrokePoints(painter_, height_, points, pen);
}

void PrintSurface::FilledArea(std::span<const PanelPoint> points, Colour fill) {
    FillPoints(painter_, height_, points, fill);
}

void PrintSurface::GradientBox(double x1, double y1, double x2, double y2, Colour top, Colour bottom) {
    FillGradient(painter_, Box(x1, y1, x2, y2), top, bottom);
}

} // namespace pulselark
