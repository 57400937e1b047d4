#pragma once

#include <QCursor>

namespace pulselark {

/// Pointer over an ECG panel: a double arrow with the seconds of the row's step, 1, 5 or 30.
QCursor SeekCursor(int row);

} // namespace pulselark
