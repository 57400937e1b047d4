#pragma once

#include <QColor>
#include <QPainter>

namespace pulselark {

/// A lark in flight to the right: beats its wings for a while and glides for a while. `span`: pixels from
/// wing tip to wing tip; `time`: seconds of the scenery.
void DrawLark(QPainter& painter, QPointF place, double span, double time, const QColor& plumage);

/// A gull far off, two bent strokes.
void DrawGull(QPainter& painter, QPointF place, double span, double time, const QColor& colour);

} // namespace pulselark
