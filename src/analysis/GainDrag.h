#pragma once

#include "analysis/PanelDrawing.h"

#include <algorithm>

/// The vertical drag of a panel's gain, which all panels share: up raises the scale s, and the gain is
/// 100^(s / 100). A record of a drag has the fields of `GainDragRecord`.
namespace pulselark {

struct GainDragRecord {
    float DragY = 0;            ///< where the mouse held the scale, panel units
    double DragGain = 0;        ///< s at that place
    double DragGainApplied = 0; ///< s that the panel shows
};

struct GainDragLimits {
    double Least;         ///< of s
    double Most;          ///< of s
    double PixelsPerStep; ///< how far the mouse goes for one step of s
};

/// Movement without a button: the drag starts here. A gain outside the limits counts as s = 100.
template <class Record>
void AnchorGainDrag(Record& record, double y, double gain, const GainDragLimits& limits) {
    const double s = ScaleOfGain(gain);
    record.DragY = static_cast<float>(y);
    // The scale of a stored limit may miss it by the last digit.
    constexpr double Tolerance = 1e-6;
    const bool inside = s >= limits.Least - Tolerance && s <= limits.Most + Tolerance;
    record.DragGain = record.DragGainApplied = inside ? s : 100;
}

/// The scale for the mouse at y. Held at a limit, the anchor moves there, so that dragging back works at
/// once.
template <class Record>
double MoveGainDrag(Record& record, double y, const GainDragLimits& limits) {
    const double wanted = (y - record.DragY) / limits.PixelsPerStep + record.DragGain;
    const double s = std::clamp(wanted, limits.Least, limits.Most);
    if (s != wanted) {
        record.DragY = static_cast<float>(y);
        record.DragGain = s;
    }
    return s;
}

/// A drag of a panel that has no other scale: button 0 anchors, 1 moves. `redraw` shows a gain that changed.
template <class Redraw>
void DragGainAlone(GainDragRecord& record, int button, double y, double& gain, const GainDragLimits& limits,
                   Redraw redraw) {
    if (!ScaleDragAllowed())
        return;
    if (button == 0)
        AnchorGainDrag(record, y, gain, limits);
    if (button != 1)
        return;
    const double s = MoveGainDrag(record, y, limits);
    if (s == record.DragGainApplied)
        return;
    gain = GainOfScale(s);
    redraw();
    record.DragGainApplied = s;
}

} // namespace pulselark
