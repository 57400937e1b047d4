#pragma once

#include <QSize>

class QPainter;

/// The small pictures of the settings form, drawn from their upper left corner.
namespace pulselark {

inline constexpr QSize HistoryTile(50, 36);
inline constexpr QSize SchemeTile(52, 42);

/// The two series as history style `tile` + 1 draws them.
void PaintHistoryTile(QPainter& painter, int tile);

/// Title bar, well and colour ramp of a colour set, 0 to 4.
void PaintSchemeTile(QPainter& painter, int scheme);

} // namespace pulselark
