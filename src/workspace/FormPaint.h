#pragma once

#include <QColor>
#include <QPen>
#include <QRectF>

class QPainter;
class QWidget;

/// What the controls of forms paint alike.
namespace pulselark {

inline constexpr QColor HoverPlate(0xEE, 0xF4, 0xF1);
inline constexpr QColor PressedPlate(0xDD, 0xE8, 0xE4);
inline constexpr QColor TrackColour(0xC6, 0xD3, 0xCE); ///< of a knob, the part not done

/// Smooth edges and the control's font; a control that cannot be used is painted faint.
void BeginControl(QPainter& painter, const QWidget& control);

QPen RoundPen(const QColor& colour, double width);

/// A tick in a box of 18 x 18.
void PaintTick(QPainter& painter, const QRectF& box, const QColor& colour);

} // namespace pulselark
