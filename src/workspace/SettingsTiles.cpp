#include "workspace/SettingsTiles.h"

#include "analysis/ColourSchemes.h"
#include "analysis/HistoryStyles.h"
#include "platform/qt/QtColour.h"
#include "workspace/FormPaint.h"
#include "workspace/Look.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>

namespace pulselark {

namespace {

const QColor CoherenceColour(132, 130, 232);
const QColor RateColour(206, 73, 65);
constexpr double Corner = 5;

void ClipToTile(QPainter& painter, const QSizeF& tile) {
    QPainterPath outline;
    outline.addRoundedRect(QRectF(QPointF(0, 0), tile), Corner, Corner);
    painter.setClipPath(outline);
}

void PaintSeries(QPainter& painter, SeriesStyle style, const QPolygonF& line, const QColor& colour) {
    if (style == SeriesStyle::Line) {
        painter.setPen(RoundPen(colour, 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawPolyline(line);
    }
    if (style == SeriesStyle::Filled) {
        constexpr double Baseline = 31;
        QPolygonF area = line;
        area << QPointF(line.last().x(), Baseline) << QPointF(line.first().x(), Baseline);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawPolygon(area);
    }
}

} // namespace

void PaintHistoryTile(QPainter& painter, int tile) {
    const QPolygonF coherence(QList<QPointF>{{4, 29}, {12, 21}, {20, 25}, {28, 15}, {36, 21}, {46, 17}});
    const QPolygonF rate(QList<QPointF>{{4, 18}, {12, 24}, {20, 14}, {28, 23}, {36, 13}, {46, 22}});
    painter.save();
    ClipToTile(painter, HistoryTile);
    painter.fillRect(QRectF(QPointF(0, 0), HistoryTile), FormColour::Card);
    const HistoryStyleParts& parts = StyleOf(static_cast<Integer>(tile + 1));
    if (parts.CoherenceFirst)
        PaintSeries(painter, parts.Coherence, coherence, CoherenceColour);
    PaintSeries(painter, parts.Rate, rate, RateColour);
    if (!parts.CoherenceFirst)
        PaintSeries(painter, parts.Coherence, coherence, CoherenceColour);
    painter.restore();
}

void PaintSchemeTile(QPainter& painter, int scheme) {
    constexpr double TitleHeight = 11;
    const Image& well = picModBGSrc(scheme);
    const Image& ramp = picWGradient(scheme);
    painter.save();
    ClipToTile(painter, SchemeTile);
    painter.fillRect(QRectF(QPointF(0, 0), SchemeTile), ToQColor(well.PixelAt(0, well.Height / 2)));
    painter.fillRect(QRectF(0, 0, SchemeTile.width(), TitleHeight), LookOf(scheme).TitleBar);
    const QRectF bar(6, 20, SchemeTile.width() - 12, 12);
    QLinearGradient gradient(bar.topLeft(), bar.topRight());
    constexpr int Steps = 10;
    for (int step = 0; step <= Steps; ++step) {
        const int x = step * (ramp.Width - 1) / Steps;
        gradient.setColorAt(static_cast<double>(step) / Steps, ToQColor(ramp.PixelAt(x, 0)));
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(gradient);
    painter.drawRoundedRect(bar, 2, 2);
    painter.restore();
}

} // namespace pulselark
