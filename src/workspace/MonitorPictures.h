#pragma once

class QPainter;
class QRectF;

namespace pulselark {

/// The picture of `picDSU` 0 to 2 in a rectangle: a small unit with two leads, a unit with four sockets, and
/// a place that is free.
void PaintDsuPicture(QPainter& painter, int picture, const QRectF& place);

/// The sign of one of `PlainMonitors` in a square of 24: a computed wave, a plug, a strap, a played sheet.
void PaintPlainMonitor(QPainter& painter, int monitor, const QRectF& square);

} // namespace pulselark
