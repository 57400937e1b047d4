#pragma once

#include "scenery/TidalState.h"

#include <QPainter>
#include <QSize>
#include <QString>

namespace pulselark {

/// Draws the tidal view over (0, 0) to `size`: time, coherence now and over the last minutes, the spectra of
/// the ECG and of the heart rate.
void PaintTidal(QPainter& painter, QSize size, const TidalState& state);
/// Time and coherence for a screen reader.
QString DescribeTidal(const TidalState& state);

} // namespace pulselark
