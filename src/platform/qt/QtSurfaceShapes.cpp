#include "platform/qt/QtSurfaceShapes.h"

#include "platform/qt/QtColour.h"
#include "platform/qt/QtFonts.h"

#include <QFontMetricsF>
#include <QLinearGradient>

#include <algorithm>
#include <map>

namespace pulselark {

namespace {

constexpr int DrawnSize = 100; // px of the font that all heights are scaled from

struct ScaledFont {
    QFont Font;
    QFontMetricsF Metrics;
};

const ScaledFont& FontOfWeight(int weight) {
    static std::map<int, ScaledFont> known;
    const auto found = known.find(weight);
    if (found != known.end())
        return found->second;
    QFont font(FontFamilies());
    font.setPixelSize(DrawnSize);
    font.setWeight(static_cast<QFont::Weight>(weight));
    font.setHintingPreference(QFont::PreferNoHinting);
    return known.emplace(weight, ScaledFont{font, QFontMetricsF(font)}).first->second;
}

QPolygonF ToPolygon(std::span<const PanelPoint> points, double pageHeight) {
    QPolygonF polygon;
    polygon.reserve(static_cast<qsizetype>(points.size()));
    for (const PanelPoint& point : points)
        polygon.append({point.X, pageHeight - point.Y});
    return polygon;
}

// Puts the painter back to what it was, whatever a shape sets.
class SavedPainter {
public:
    explicit SavedPainter(QPainter& painter) : painter_(painter) {
        painter_.save();
        painter_.setRenderHint(QPainter::Antialiasing, true);
    }
    SavedPainter(const SavedPainter&) = delete;
    SavedPainter& operator=(const SavedPainter&) = delete;
    ~SavedPainter() { painter_.restore(); }

private:
    QPainter& painter_;
};

} // namespace

double PageFont::Width(const QString& text) const {
    return FontOfWeight(Weight).Metrics.horizontalAdvance(text) * Height / DrawnSize;
}

void PageFont::Print(QPainter& painter, QPointF corner, const QString& text, const QColor& ink) const {
    const SavedPainter saved(painter);
    const ScaledFont& font = FontOfWeight(Weight);
    painter.setFont(font.Font);
    painter.setPen(ink);
    painter.translate(corner);
    painter.scale(Height / DrawnSize, Height / DrawnSize);
    painter.drawText(QPointF(0, (DrawnSize + font.Metrics.capHeight()) / 2), text);
}

void StrokePoints(QPainter& painter, double pageHeight, std::span<const PanelPoint> points, const Pen& pen) {
    if (points.size() < 2)
        return;
    const SavedPainter saved(painter);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(ToQColor(pen.Ink), pen.Width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    // A long line is drawn in pieces: its time grows with the square of the points that one outline goes
    // round, and round ends leave no seam.
    constexpr std::size_t PointsOfAPiece = 48;
    for (std::size_t from = 0; from + 1 < points.size(); from += PointsOfAPiece)
        painter.drawPolyline(
            ToPolygon(points.subspan(from, std::min(PointsOfAPiece + 1, points.size() - from)), pageHeight));
}

void FillPoints(QPainter& painter, double pageHeight, std::span<const PanelPoint> points, Colour fill) {
    if (points.size() < 3)
        return;
    const SavedPainter saved(painter);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ToQColor(fill));
    painter.drawPolygon(ToPolygon(points, pageHeight));
}

void FillGradient(QPainter& painter, const QRectF& box, Colour top, Colour bottom) {
    const SavedPainter saved(painter);
    QLinearGradient gradient(box.topLeft(), box.bottomLeft());
    gradient.setColorAt(0, ToQColor(top));
    gradient.setColorAt(1, ToQColor(bottom));
    painter.fillRect(box, gradient);
}

} // namespace pulselark
