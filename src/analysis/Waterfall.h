#pragma once

#include "analysis/ColourSchemes.h"
#include "analysis/PanelDrawing.h"
#include "session/AnalysisBuffers.h"

#include <span>

namespace pulselark {

/// The knob of a waterfall's depth before any settings are read: six older layers.
inline constexpr Integer WaterfallDepthKnob = 316;

/// How a waterfall fills the newest curve when graphs are solid.
struct WaterfallFill {
    double BaselineLeft; ///< where the closing baseline starts
    double FillX;        ///< where the filling starts
    double GridLeft;     ///< where the axis' own baseline starts
};

/// Draws the newest `depth` + 1 curves of a ring of slots, oldest first. `curveOf(slot, age)` gives the
/// points of one; they must last until the next call. A lone unfilled curve has a shadow, and is drawn
/// `loneWidth` wide over it. With solid graphs the newest curve of a persistent panel is filled.
template <class CurveOf>
void DrawWaterfall(Surface& panel, int depth, int newestSlot, int loneWidth, const WaterfallFill& fill,
                   CurveOf curveOf) {
    const bool solid = SolidGraphs != Off;
    const bool lone = depth == 0 && !solid;
    panel.SetDrawWidth(solid ? 1 : 2);
    for (int layer = 0; layer <= depth; ++layer) {
        const int age = depth - layer;
        const int slot = newestSlot - age < 1 ? newestSlot - age + RingSlots : newestSlot - age;
        const LayerColours colours = ColoursOfLayer(layer, depth);
        const std::span<const PanelPoint> curve = curveOf(slot, age);
        if (lone) {
            panel.SetDrawWidth(3);
            panel.Curve(curve, colours.Shadow);
            panel.SetDrawWidth(loneWidth);
        }
        panel.Curve(curve, colours.Layer);
        if (solid && age == 0 && panel.Persistent()) {
            FillUnderCurve(panel, curve, fill.BaselineLeft, fill.FillX, colours.Layer, CurrentScheme().Fill,
                           fill.GridLeft);
        }
    }
    panel.SetDrawWidth(1);
}

} // namespace pulselark
