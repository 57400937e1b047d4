#include "platform/qt/QtColour.h"
#include "platform/qt/QtSurface.h"
#include "platform/qt/QtSurfaceShapes.h"

// The shapes and texts of pages on the picture of a panel.
namespace pulselark {

void QtSurface::SetPageFont(double height, int weight) {
    pageFont_ = {height, weight};
}

void QtSurface::Stroke(std::span<const PanelPoint> points, const Pen& pen) {
    if (!Empty())
        StrokePoints(Painter(), height_, points, pen);
}

void QtSurface::FilledArea(std::span<const PanelPoint> points, Colour fill) {
    if (!Empty())
        FillPoints(Painter(), height_, points, fill);
}

void QtSurface::GradientBox(double x1, double y1, double x2, double y2, Colour top, Colour bottom) {
    if (!Empty())
        FillGradient(Painter(), QRectF(ToDevice(x1, y1), ToDevice(x2, y2)).normalized(), top, bottom);
}

void QtSurface::PrintPageText(double x, double y, std::string_view text) {
    pageFont_.Print(Painter(), ToDevice(x, y),
                    QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())),
                    ToQColor(foreColour_));
}

} // namespace pulselark
