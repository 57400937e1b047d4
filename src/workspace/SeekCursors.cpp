#include "workspace/SeekCursors.h"

#include "workspace/Look.h"

#include <QPainter>
#include <QPixmap>

#include <algorithm>
#include <array>

namespace pulselark {

QCursor SeekCursor(int row) {
    constexpr std::array<const char*, 3> Steps{"1", "5", "30"};
    constexpr int Side = 32;
    QPixmap pixmap(Side, Side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPolygonF arrow(QList<QPointF>{
        {2, 10}, {9, 4}, {9, 8}, {23, 8}, {23, 4}, {30, 10}, {23, 16}, {23, 12}, {9, 12}, {9, 16}});
    painter.setPen(QPen(Qt::black, 1));
    painter.setBrush(Qt::white);
    painter.drawPolygon(arrow);
    painter.setFont(TextFont(12, 700));
    const QRect place(0, 17, Side, 14);
    painter.setPen(Qt::black);
    for (const QPoint& shift : {QPoint(-1, 0), QPoint(1, 0), QPoint(0, -1), QPoint(0, 1)})
        painter.drawText(place.translated(shift), Qt::AlignCenter,
                         Steps[static_cast<std::size_t>(std::clamp(row, 0, 2))]);
    painter.setPen(Qt::white);
    painter.drawText(place, Qt::AlignCenter, Steps[static_cast<std::size_t>(std::clamp(row, 0, 2))]);
    painter.end();
    return QCursor(pixmap, 16, 10);
}

} // namespace pulselark
