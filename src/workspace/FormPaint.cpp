#include "workspace/FormPaint.h"

#include <QPainter>
#include <QPolygonF>
#include <QWidget>

namespace pulselark {

void BeginControl(QPainter& painter, const QWidget& control) {
    constexpr double Faint = 0.38;
    painter.setRenderHint(QPainter::Antialiasing);
    if (!control.isEnabled())
        painter.setOpacity(Faint);
}

QPen RoundPen(const QColor& colour, double width) {
    return {colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

void PaintTick(QPainter& painter, const QRectF& box, const QColor& colour) {
    painter.setPen(RoundPen(colour, 2));
    const QPointF at = box.topLeft();
    painter.drawPolyline(
        QPolygonF(QList<QPointF>{at + QPointF(5, 9.3), at + QPointF(8, 12.2), at + QPointF(13.2, 6.4)}));
}

} // namespace pulselark
