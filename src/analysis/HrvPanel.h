#pragma once

#include "base/Numbers.h"

/// The panels of the heart rate variability, `picHRVA` and `picHRVB`: the power spectrum over 0 to 0.5 Hz
/// with its three bands in colour, and bars of the two band powers.
namespace pulselark {

extern double HrvGain;       ///< vertical gain, 100^(s / 100) with s from 100 to 160; start 100
extern Boolean ShowHrvPower; ///< the bars show; start -1

/// Draws axes and, from second 256 on, the bands; before it says how long data are still missing.
void DrawHrvA();
void DrawHrvB();

/// Draws one band: 1 VLF (bins 2 to 10), 2 LF (11 to 38), 3 HF (39 to 127).
void DrawHrvBandA(int band);
void DrawHrvBandB(int band);

/// Draws the bars, LF below HF: empty up to second 256.
void DrawHrvBarsA();
void DrawHrvBarsB();

/// Draws both panels for a passing moment, while a drag moves.
void RedrawHrv();

/// Lays the module's panels out, gives them background and captions, and with `redraw` draws them.
void OpenHrvPanel(bool redraw);

/// Mouse on a panel, y in panel units: `button` 0 anchors, 1 drags; upwards raises the gain.
void DragHrvScale(int button, double y);

/// Puts the display settings above to their start values.
void ResetHrvDisplay();

} // namespace pulselark
