#pragma once

#include "base/Numbers.h"

/// The spectrum panels `picSA` and `picSB`: the newest averaged spectra as a waterfall over 0 to
/// `SpectrumMaxHz`.
namespace pulselark {

extern Integer SpectrumMaxHz; ///< right end of the frequency axis, 10 to 64 Hz; start 64
extern double SpectrumGain;   ///< vertical gain, 100^(s / 100) with s from 80 to 160; start 100
extern Integer SpectrumDepth; ///< older layers behind the newest, 0 to 19; start 6
extern Integer SpectrumStep;  ///< offset of each layer, magnitude; start that of a knob at 1000
extern Integer SpectrumDepthKnob, SpectrumStepKnob; ///< knob positions, 0 to 1000; start 316, 1000

/// Draws a panel from the ring.
void DrawSpectrumA();
void DrawSpectrumB();

/// Draws both panels for a passing moment, while a knob or a drag moves.
void RedrawSpectrum();

/// Lays the module's panels out, gives them background and captions, and with `redraw` draws them.
void OpenSpectrumPanel(bool redraw);

/// Mouse on a panel `width` units wide, x and y in panel units. `button` 0 anchors; 1 drags: to the left
/// widens the frequency range, upwards raises the gain. Limits hold with their anchors, so that dragging back
/// works at once.
void DragSpectrumScale(int button, double x, double y, double width);

/// Value of a knob at `position` 0 to 1000: depth 0 to 19; spacing 375 to 4568.
Integer SpectrumDepthFromKnob(Integer position);
Integer SpectrumStepFromKnob(Integer position);

/// Puts the display settings above to their start values.
void ResetSpectrumDisplay();

} // namespace pulselark
