#include "workspace/Icons.h"

#include <QPainterPath>
#include <QPolygonF>

namespace pulselark {

namespace {

QPolygonF Points(std::initializer_list<QPointF> points) {
    return QPolygonF(QList<QPointF>(points));
}

void PaintFilled(QPainter& painter, Icon icon, const QColor& colour) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    if (icon == Icon::Record)
        painter.drawEllipse(QPointF(8, 8), 5, 5);
    if (icon == Icon::Stop)
        painter.drawRoundedRect(QRectF(4, 4, 8, 8), 1, 1);
    if (icon == Icon::Replay) {
        QPainterPath triangle;
        triangle.addPolygon(Points({{5, 3}, {13, 8}, {5, 13}}));
        triangle.closeSubpath();
        painter.setPen(QPen(colour, 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPath(triangle);
    }
}

void PaintLight(QPainter& painter, Icon icon) {
    if (icon == Icon::LightGood) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0x4F, 0xD1, 0x8B));
        painter.drawEllipse(QPointF(8, 8), 6.5, 6.5);
        painter.setPen(QPen(QColor(0x10, 0x2A, 0x1C), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(Qt::NoBrush);
        painter.drawPolyline(Points({{5, 8.2}, {7.2, 10.4}, {11, 6}}));
        return;
    }
    if (icon == Icon::LightWeak) {
        painter.setPen(QPen(QColor(0xF5, 0xB8, 0x3D), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(QColor(0xF5, 0xB8, 0x3D));
        painter.drawPolygon(Points({{8, 2}, {14.5, 13.5}, {1.5, 13.5}}));
        painter.setPen(QPen(QColor(0x33, 0x22, 0x00), 1.5, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(8, 6), QPointF(8, 9.5));
        painter.drawPoint(QPointF(8, 12));
        return;
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(0xFF, 0x6B, 0x6B), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawRect(QRectF(3, 3, 10, 10));
    painter.drawLine(QPointF(3.5, 12.5), QPointF(12.5, 3.5));
}

void PaintMark(QPainter& painter, Icon icon) {
    switch (icon) {
    case Icon::Pinned:
        painter.setBrush(painter.pen().color());
        [[fallthrough]];
    case Icon::Pin:
        painter.drawPolygon(Points({{5, 2.5}, {11, 2.5}, {10.5, 7}, {12.5, 9.5}, {3.5, 9.5}, {5.5, 7}}));
        painter.drawLine(QPointF(8, 9.5), QPointF(8, 14));
        break;
    case Icon::Enlarge:
        painter.drawPolyline(Points({{2.5, 6}, {2.5, 2.5}, {6, 2.5}}));
        painter.drawPolyline(Points({{10, 2.5}, {13.5, 2.5}, {13.5, 6}}));
        painter.drawPolyline(Points({{13.5, 10}, {13.5, 13.5}, {10, 13.5}}));
        painter.drawPolyline(Points({{6, 13.5}, {2.5, 13.5}, {2.5, 10}}));
        break;
    case Icon::Restore:
        painter.drawRect(QRectF(2.5, 5.5, 8, 8));
        painter.drawPolyline(Points({{5.5, 5.5}, {5.5, 2.5}, {13.5, 2.5}, {13.5, 10.5}, {10.5, 10.5}}));
        break;
    case Icon::Minimise:
        painter.drawLine(QPointF(3, 12.5), QPointF(13, 12.5));
        break;
    case Icon::KeepPlaces: // panels, and an arrow into them
        painter.drawPolyline(
            Points({{5, 6.5}, {2.5, 6.5}, {2.5, 13.5}, {13.5, 13.5}, {13.5, 6.5}, {11, 6.5}}));
        painter.drawLine(QPointF(8, 2), QPointF(8, 9.5));
        painter.drawPolyline(Points({{5.5, 7.2}, {8, 9.7}, {10.5, 7.2}}));
        break;
    case Icon::BackToPlaces: // panels, and an arrow round to them
        painter.drawPolyline(
            Points({{5, 6.5}, {2.5, 6.5}, {2.5, 13.5}, {13.5, 13.5}, {13.5, 6.5}, {11, 6.5}}));
        painter.drawLine(QPointF(8, 2.3), QPointF(8, 9.7));
        painter.drawPolyline(Points({{5.5, 4.8}, {8, 2.3}, {10.5, 4.8}}));
        break;
    case Icon::Close:
        painter.drawLine(QPointF(3.5, 3.5), QPointF(12.5, 12.5));
        painter.drawLine(QPointF(12.5, 3.5), QPointF(3.5, 12.5));
        break;
    case Icon::Tick:
        painter.drawPolyline(Points({{3, 8.5}, {6.5, 12}, {13, 4.5}}));
        break;
    case Icon::ArrowRight:
        painter.drawPolyline(Points({{6, 4}, {10, 8}, {6, 12}}));
        break;
    case Icon::ArrowDown:
        painter.drawPolyline(Points({{4, 6}, {8, 10}, {12, 6}}));
        break;
    default:
        break;
    }
}

void PaintPanelIcon(QPainter& painter, Icon icon) {
    switch (icon) {
    case Icon::Mark:
    case Icon::EcgInput:
        painter.drawPolyline(
            Points({{1.5, 8.5}, {4.5, 8.5}, {6, 4}, {8.5, 12.5}, {10.5, 7}, {11.5, 8.5}, {14.5, 8.5}}));
        break;
    case Icon::Spectrum:
        painter.drawLine(QPointF(2, 14), QPointF(14, 14));
        for (const QLineF& bar : {QLineF(4, 11.5, 4, 7), QLineF(7, 11.5, 7, 2.5), QLineF(10, 11.5, 10, 5.5),
                                  QLineF(13, 11.5, 13, 9)})
            painter.drawLine(bar);
        break;
    case Icon::Coherence: {
        QPainterPath bell;
        bell.moveTo(2, 13.5);
        bell.cubicTo(5.5, 13.5, 5.5, 2.5, 8, 2.5);
        bell.cubicTo(10.5, 2.5, 10.5, 13.5, 14, 13.5);
        painter.drawPath(bell);
        break;
    }
    case Icon::History:
        painter.drawPolyline(Points({{2, 2.5}, {2, 14}, {14, 14}}));
        painter.drawPolyline(Points({{4.5, 10}, {7, 6.5}, {9.5, 8.5}, {13.5, 3.5}}));
        break;
    case Icon::Hrv:
        painter.drawLine(QPointF(2, 14), QPointF(14, 14));
        painter.drawPolyline(Points({{2.5, 11}, {5.5, 4}, {8, 10}, {10.5, 6.5}, {13.5, 11}}));
        break;
    case Icon::QuickScan:
        painter.drawPolyline(Points({{3.5, 14}, {3.5, 2}, {10, 2}, {12.5, 4.5}, {12.5, 14}, {3.5, 14}}));
        painter.drawLine(QPointF(6, 7), QPointF(10, 7));
        painter.drawLine(QPointF(6, 10), QPointF(10, 10));
        break;
    case Icon::Training:
        painter.drawEllipse(QPointF(8, 8), 5.5, 5.5);
        painter.drawEllipse(QPointF(8, 8), 2, 2);
        break;
    case Icon::Print:
        painter.drawPolyline(Points({{4.5, 5.5}, {4.5, 2}, {11.5, 2}, {11.5, 5.5}}));
        painter.drawPolyline(Points({{4.5, 11.5}, {2, 11.5}, {2, 5.5}, {14, 5.5}, {14, 11.5}, {11.5, 11.5}}));
        painter.drawRect(QRectF(4.5, 9, 7, 5));
        break;
    case Icon::BreathingWave: {
        QPainterPath wave;
        wave.moveTo(2, 8);
        wave.cubicTo(3.5, 2, 5.5, 2, 7, 6);
        wave.cubicTo(7.8, 8.5, 8.2, 9, 9, 11);
        wave.cubicTo(10.5, 14, 12.5, 14, 14, 8);
        painter.drawPath(wave);
        break;
    }
    case Icon::Heart: {
        QPainterPath heart;
        heart.moveTo(8, 13.5);
        heart.cubicTo(2, 9.5, 2, 6.5, 2, 5.8);
        heart.cubicTo(2, 2.5, 6.3, 1.8, 8, 5);
        heart.cubicTo(9.7, 1.8, 14, 2.5, 14, 5.8);
        heart.cubicTo(14, 6.5, 14, 9.5, 8, 13.5);
        painter.drawPath(heart);
        break;
    }
    case Icon::Scenery:
        painter.drawPolyline(Points({{2, 13.5}, {5.5, 7.5}, {7.5, 10.5}, {10, 6.5}, {14, 13.5}, {2, 13.5}}));
        painter.drawEllipse(QPointF(11.5, 3.5), 1.5, 1.5);
        break;
    case Icon::Music:
        painter.drawEllipse(QPointF(4.2, 12), 1.9, 1.9);
        painter.drawEllipse(QPointF(11.8, 10.8), 1.9, 1.9);
        painter.drawPolyline(Points({{6.1, 12}, {6.1, 3.8}, {13.7, 2.5}, {13.7, 10.8}}));
        break;
    default:
        PaintMark(painter, icon);
        break;
    }
}

// Told apart by their shape: a circle, a rounded square, a triangle.
void PaintSign(QPainter& painter, Icon icon) {
    if (icon == Icon::Information) {
        painter.drawEllipse(QPointF(8, 8), 6, 6);
        painter.drawLine(QPointF(8, 7.5), QPointF(8, 11));
        painter.drawPoint(QPointF(8, 5));
    }
    if (icon == Icon::Question) {
        painter.drawRoundedRect(QRectF(2, 2, 12, 12), 3, 3);
        QPainterPath hook;
        hook.moveTo(6, 6.2);
        hook.cubicTo(6, 3.6, 10, 3.6, 10, 6.2);
        hook.cubicTo(10, 7.8, 8, 7.8, 8, 9.4);
        painter.drawPath(hook);
        painter.drawPoint(QPointF(8, 11.6));
    }
    if (icon == Icon::Warning) {
        QPainterPath triangle;
        triangle.addPolygon(Points({{8, 2}, {14.2, 13.5}, {1.8, 13.5}}));
        triangle.closeSubpath();
        painter.drawPath(triangle);
        painter.drawLine(QPointF(8, 6), QPointF(8, 9.4));
        painter.drawPoint(QPointF(8, 11.6));
    }
}

} // namespace

void PaintIcon(QPainter& painter, Icon icon, const QRectF& square, const QColor& colour) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.translate(square.topLeft());
    painter.scale(square.width() / 16, square.height() / 16);
    const double stroke = square.width() > 20 ? 1.5 * 16 / square.width() * 1.25 : 1.5;
    painter.setPen(QPen(colour, stroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    switch (icon) {
    case Icon::Record:
    case Icon::Replay:
    case Icon::Stop:
        PaintFilled(painter, icon, colour);
        break;
    case Icon::LightGood:
    case Icon::LightWeak:
    case Icon::LightLost:
        PaintLight(painter, icon);
        break;
    case Icon::Information:
    case Icon::Question:
    case Icon::Warning:
        PaintSign(painter, icon);
        break;
    default:
        PaintPanelIcon(painter, icon);
        break;
    }
    painter.restore();
}

} // namespace pulselark
