#pragma once

#include "scenery/BreathPhase.h"

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QRect>

namespace pulselark {

/// The breath to follow: a filled disc that grows on the in-breath, a ring that shrinks on the out-breath, a
/// fixed thin circle where the breath turns, and an arrow that points the way. Lies on a dark plate, so that
/// it is seen on every scenery. Lengths are device pixels.
class PacerDisc {
public:
    /// `plate`: the colour behind the disc, dark.
    void Resize(QSize picture, const QColor& plate);
    /// What the pacer covers.
    QRect Area() const { return area_; }
    void Draw(QPainter& painter, const Breath& breath) const;

private:
    QRect area_;
    QPointF centre_;
    double radius_ = 0; ///< of the circle where the breath turns
    QColor ground_;
    QImage plate_;
};

} // namespace pulselark
