#pragma once

#include "base/Numbers.h"

/// The coherence panels `picGCA` and `picGCB`: the newest curves as a waterfall over a beat interval of 0 to
/// 2 seconds, in percent, with the rate of the peak beside it.
namespace pulselark {

extern double CoherenceGain;   ///< vertical gain, 100^(s / 100) with s from 85 to 130; start 100
extern Integer CoherenceDepth; ///< older layers behind the newest, 0 to 19; start 6
extern double CoherenceStep;   ///< offset of each layer, coherence units; start that of a knob at 1000
extern Integer CoherenceDepthKnob, CoherenceStepKnob; ///< knob positions, 0 to 1000; start 316, 1000
extern Boolean ShowBpmCoherence; ///< the rate of the peak, the BPMc, is printed at the peak; start -1

/// Draws a panel from the ring.
void DrawCoherenceA();
void DrawCoherenceB();

/// Draws both panels for a passing moment, while a knob or a drag moves.
void RedrawCoherence();

/// Empties the rings' curves of channel A and draws it.
void ClearCoherenceRings();

/// Lays the module's panels out, gives them background and captions, and with `redraw` draws them.
void OpenCoherencePanel(bool redraw);

/// Mouse on a panel, y in panel units: `button` 0 anchors, 1 drags; upwards raises the gain.
void DragCoherenceScale(int button, double y);

/// Value of a knob at `position` 0 to 1000: depth 0 to 19; spacing 0.0012 to 0.0146.
Integer CoherenceDepthFromKnob(Integer position);
double CoherenceStepFromKnob(Integer position);

/// Puts the display settings above to their start values.
void ResetCoherenceDisplay();

} // namespace pulselark
