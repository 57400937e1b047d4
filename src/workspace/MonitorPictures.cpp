#include "workspace/MonitorPictures.h"

#include "workspace/FormPaint.h"
#include "workspace/Look.h"

#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>

namespace pulselark {

namespace {

const QColor Body(0xEE, 0xF4, 0xF1);

QPolygonF Points(std::initializer_list<QPointF> points) {
    return QPolygonF(QList<QPointF>(points));
}

// One beat, from (0, 0) to (width, 0), as high as `height`.
QPolygonF Beat(double width, double height) {
    return Points({{0, 0},
                   {width * 0.28, 0},
                   {width * 0.36, -height * 0.2},
                   {width * 0.44, 0},
                   {width * 0.5, height * 0.15},
                   {width * 0.57, -height},
                   {width * 0.64, height * 0.3},
                   {width * 0.7, 0},
                   {width, 0}});
}

// A unit the size of a matchbox, with two leads that end in clips.
void PaintTwoLeads(QPainter& painter) {
    painter.setBrush(Body);
    painter.drawRoundedRect(QRectF(12, 42, 72, 38), 8, 8);
    painter.setBrush(Qt::NoBrush);
    for (const double side : {-1.0, 1.0}) {
        QPainterPath lead(QPointF(48 + side * 10, 42));
        lead.cubicTo(QPointF(48 + side * 10, 24), QPointF(48 + side * 30, 32), QPointF(48 + side * 30, 14));
        painter.drawPath(lead);
        painter.setBrush(FormColour::Card);
        painter.drawEllipse(QPointF(48 + side * 30, 9), 6, 6);
        painter.setBrush(Qt::NoBrush);
    }
    painter.translate(22, 65);
    painter.setPen(RoundPen(FormColour::Teal, 2));
    painter.drawPolyline(Beat(52, 15));
}

// A flat unit with a lamp and four sockets in front.
void PaintFourSockets(QPainter& painter) {
    painter.setBrush(Body);
    painter.drawPolygon(Points({{18, 22}, {78, 22}, {90, 44}, {6, 44}}));
    painter.drawRoundedRect(QRectF(6, 44, 84, 34), 4, 4);
    painter.setBrush(FormColour::Card);
    for (int i = 0; i < 4; ++i)
        painter.drawEllipse(QPointF(19 + i * 15, 61), 5, 5);
    painter.setPen(Qt::NoPen);
    painter.setBrush(FormColour::Teal);
    painter.drawEllipse(QPointF(80, 61), 3.5, 3.5);
    painter.translate(30, 39);
    painter.setPen(RoundPen(FormColour::Teal, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(Beat(36, 12));
}

void PaintFreePlace(QPainter& painter) {
    QPen pen(FormColour::Edge, 2, Qt::CustomDashLine, Qt::RoundCap, Qt::RoundJoin);
    pen.setDashPattern({3, 3});
    painter.setPen(pen);
    painter.drawRoundedRect(QRectF(12, 20, 72, 54), 8, 8);
    painter.setPen(RoundPen(FormColour::Edge, 2));
    painter.drawLine(QPointF(38, 47), QPointF(58, 47));
}

} // namespace

void PaintDsuPicture(QPainter& painter, int picture, const QRectF& place) {
    constexpr double Width = 96;
    constexpr double Height = 90;
    painter.save();
    painter.translate(place.topLeft());
    painter.scale(place.width() / Width, place.height() / Height);
    painter.setPen(RoundPen(FormColour::Ink, 2));
    painter.setBrush(Qt::NoBrush);
    if (picture == 0)
        PaintTwoLeads(painter);
    else if (picture == 1)
        PaintFourSockets(painter);
    else
        PaintFreePlace(painter);
    painter.restore();
}

void PaintPlainMonitor(QPainter& painter, int monitor, const QRectF& square) {
    painter.save();
    painter.translate(square.topLeft());
    painter.setPen(RoundPen(FormColour::Teal, 1.5));
    painter.setBrush(Qt::NoBrush);
    switch (monitor) {
    case 0: // a wave on a screen
        painter.drawRoundedRect(QRectF(2.5, 4.5, 19, 15), 2, 2);
        painter.translate(4.5, 14);
        painter.drawPolyline(Beat(15, 6.5));
        break;
    case 1: // a plug
        painter.drawLine(QPointF(8.5, 3), QPointF(8.5, 8));
        painter.drawLine(QPointF(15.5, 3), QPointF(15.5, 8));
        painter.drawPolygon(Points({{5, 8}, {19, 8}, {19, 12}, {15.5, 16}, {8.5, 16}, {5, 12}}));
        painter.drawLine(QPointF(12, 16), QPointF(12, 21.5));
        break;
    case 2: // a strap with its unit
        painter.drawPolyline(Points({{1.5, 9.5}, {8, 10}}));
        painter.drawPolyline(Points({{1.5, 14.5}, {8, 14}}));
        painter.drawPolyline(Points({{22.5, 9.5}, {16, 10}}));
        painter.drawPolyline(Points({{22.5, 14.5}, {16, 14}}));
        painter.drawRoundedRect(QRectF(8, 7.5, 8, 9), 3, 3);
        painter.drawPoint(QPointF(12, 12));
        break;
    default: // a sheet that is played
        painter.drawPolygon(Points({{4.5, 2.5}, {14.5, 2.5}, {19.5, 7.5}, {19.5, 21.5}, {4.5, 21.5}}));
        painter.drawPolyline(Points({{14.5, 2.5}, {14.5, 7.5}, {19.5, 7.5}}));
        painter.drawPolygon(Points({{9.5, 10.5}, {15.5, 14}, {9.5, 17.5}}));
        break;
    }
    painter.restore();
}

} // namespace pulselark
