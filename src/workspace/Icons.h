#pragma once

#include <QColor>
#include <QPainter>
#include <QRectF>

namespace pulselark {

/// The program's icons, drawn as vectors: a 16 px grid with 2 px margin, strokes of 1.5 with round caps and
/// joins, no fill, one colour. Record, replay, stop and the lights are filled.
enum class Icon {
    Mark,
    Record,
    Replay,
    Stop,
    EcgInput,
    Spectrum,
    Coherence,
    History,
    Hrv,
    QuickScan,
    Training,
    Print,
    BreathingWave,
    Heart,
    Scenery,
    Music,
    Pin,
    Pinned,
    Enlarge,
    Restore,
    Minimise,
    KeepPlaces,
    BackToPlaces,
    Close,
    Tick,
    ArrowRight,
    ArrowDown,
    Information,
    Question,
    Warning,
    LightGood,
    LightWeak,
    LightLost,
};

/// Paints an icon into a square.
void PaintIcon(QPainter& painter, Icon icon, const QRectF& square, const QColor& colour);

} // namespace pulselark
