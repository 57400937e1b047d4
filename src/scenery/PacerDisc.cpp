#include "scenery/PacerDisc.h"

#include <QPainterPath>
#include <QRadialGradient>

#include <algorithm>
#include <array>
#include <cmath>

namespace pulselark {

namespace {

constexpr QColor Ink(0xF4, 0xF8, 0xFF);
constexpr double Share = 0.19;    // of the picture's shorter side
constexpr double PlateSize = 1.3; // of the turning circle

} // namespace

void PacerDisc::Resize(QSize picture, const QColor& plate) {
    ground_ = plate;
    radius_ = std::max(8.0, std::min(picture.width(), picture.height()) * Share);
    centre_ = QPointF(picture.width() / 2.0, picture.height() * 0.5);
    const int side = static_cast<int>(std::ceil(2 * radius_ * PlateSize)) + 2;
    area_ =
        QRect(static_cast<int>(centre_.x()) - side / 2, static_cast<int>(centre_.y()) - side / 2, side, side);
    plate_ = QImage(side, side, QImage::Format_ARGB32_Premultiplied);
    plate_.fill(Qt::transparent);
    QPainter painter(&plate_);
    const QPointF middle = centre_ - area_.topLeft();
    QRadialGradient gradient(middle, radius_ * PlateSize);
    QColor colour = plate;
    for (const auto& [at, alpha] :
         {std::pair{0.0, 168}, std::pair{0.78, 160}, std::pair{0.86, 96}, std::pair{1.0, 0}}) {
        colour.setAlpha(alpha);
        gradient.setColorAt(at, colour);
    }
    painter.fillRect(plate_.rect(), gradient);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor thin = Ink;
    thin.setAlpha(150);
    painter.setPen(QPen(thin, std::max(1.0, radius_ / 110)));
    painter.drawEllipse(middle, radius_, radius_);
}

void PacerDisc::Draw(QPainter& painter, const Breath& breath) const {
    painter.drawImage(area_.topLeft(), plate_);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const double size = radius_ * breath.Size;
    const double line = std::max(2.0, radius_ / 14);
    if (breath.In) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(Ink);
        painter.drawEllipse(centre_, size, size);
    } else {
        painter.setPen(QPen(Ink, line));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(centre_, size - line / 2, size - line / 2);
    }
    // The arrow keeps its size, that of the smallest disc, so that it is no second motion.
    const double arm = radius_ * 0.15;
    const double up = breath.In ? -1 : 1;
    QPen pen(breath.In ? ground_ : Ink, std::max(1.5, radius_ / 26), Qt::SolidLine, Qt::RoundCap,
             Qt::RoundJoin);
    painter.setPen(pen);
    const std::array head{centre_ + QPointF(-arm, up * -arm * 0.1), centre_ + QPointF(0, up * arm * 0.9),
                          centre_ + QPointF(arm, up * -arm * 0.1)};
    painter.drawPolyline(head.data(), static_cast<int>(head.size()));
    painter.drawLine(centre_ + QPointF(0, up * arm * 0.85), centre_ - QPointF(0, up * arm * 0.9));
    painter.restore();
}

} // namespace pulselark
