#include "scenery/Birds.h"

#include "scenery/Brush.h"

#include <cmath>

namespace pulselark {

namespace {

// -1 (wings down) to 1 (wings up); half up while gliding.
double WingBeat(double time, double beats) {
    constexpr double Round = 6.28318530718, Glide = 0.55, Cycle = 5;
    const double part = std::fmod(time, Cycle) / Cycle;
    const double flight =
        std::fmin(1.0, std::fmax(0.0, std::sin(part * Round) * 2 + 1.1)); // 1 flies, 0 glides
    return Glide + flight * (std::sin(time * beats * Round) * 0.85 - Glide * 0.6);
}

} // namespace

void DrawLark(QPainter& painter, QPointF place, double span, double time, const QColor& plumage) {
    const double beat = WingBeat(time, 2.6);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(place);
    painter.rotate(-12);
    painter.scale(span / 100, span / 100);
    const QColor pale = MixColour(plumage, QColor(0xF4, 0xE6, 0xCC), 0.62);
    const QColor dark = MixColour(plumage, Qt::black, 0.3);

    const auto wing = [&](double side, const QColor& colour) { // the far one smaller and to the front
        QPainterPath path(QPointF(15 + side, -5));
        const double tip = (beat < 0 ? 16 : -16) - beat * 46; // never edge-on for long
        path.cubicTo(12 + side, tip * 0.5 - 8, -6 + side, tip * 0.95 - 4, -34 + side, tip - 4);
        path.cubicTo(-29 + side, tip * 0.7, -26 + side, tip * 0.3 + 4, -17 + side, 3);
        path.closeSubpath();
        painter.fillPath(path, colour);
    };
    wing(9, dark);

    QPainterPath tail(QPointF(-22, -2));
    tail.lineTo(-52, -6);
    tail.lineTo(-48, 1);
    tail.lineTo(-54, 5);
    tail.lineTo(-20, 6);
    tail.closeSubpath();
    painter.fillPath(tail, dark);

    QPainterPath body(QPointF(-28, 1));
    body.cubicTo(-14, -11, 14, -13, 24, -11);
    body.cubicTo(28, -18, 38, -18, 41, -9);
    body.cubicTo(40, 2, 22, 14, 2, 13);
    body.cubicTo(-10, 12, -20, 8, -28, 1);
    painter.fillPath(body, plumage);
    QPainterPath breast(QPointF(40, -6));
    breast.cubicTo(38, 4, 22, 14, 2, 13);
    breast.cubicTo(-8, 12, -16, 9, -22, 5);
    breast.cubicTo(0, 8, 24, 4, 40, -6);
    painter.fillPath(breast, pale);

    QPainterPath crest(QPointF(26, -14));
    crest.lineTo(22, -21);
    crest.lineTo(34, -16);
    crest.closeSubpath();
    painter.fillPath(crest, dark);
    QPainterPath beak(QPointF(40, -10.5));
    beak.lineTo(49, -8);
    beak.lineTo(40.5, -6.5);
    beak.closeSubpath();
    painter.fillPath(beak, MixColour(dark, QColor(0xE0, 0xA0, 0x40), 0.4));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x18, 0x12, 0x10));
    painter.drawEllipse(QPointF(35, -11), 1.9, 1.9);
    wing(0, MixColour(plumage, dark, 0.35));
    painter.restore();
}

void DrawGull(QPainter& painter, QPointF place, double span, double time, const QColor& colour) {
    const double lift = WingBeat(time, 1.1) * span * 0.22;
    QPainterPath path(place + QPointF(-span / 2, -lift));
    path.quadTo(place + QPointF(-span * 0.2, -lift - span * 0.12), place);
    path.quadTo(place + QPointF(span * 0.2, -lift - span * 0.12), place + QPointF(span / 2, -lift));
    path.quadTo(place + QPointF(span * 0.2, -lift - span * 0.04), place + QPointF(0, span * 0.09));
    path.quadTo(place + QPointF(-span * 0.2, -lift - span * 0.04), place + QPointF(-span / 2, -lift));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(path, colour);
    painter.restore();
}

} // namespace pulselark
