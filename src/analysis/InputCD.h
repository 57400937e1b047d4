#pragma once

#include "base/Colour.h"
#include "base/Numbers.h"
#include "platform/Surface.h"

/// The last four seconds of raw ECG of each channel. This module draws samples; it finds no beats.
namespace pulselark {

inline constexpr int EcgSecondsShown = 4;
inline constexpr double EcgFullScale = 1000; ///< sample value at the panel's top edge; 0 lies at mid-height

/// Units of `EcgPixelUnit` per second; start 1024, so that 8 of them are one sample's step.
extern Integer EcgSecondWidth;
/// (panel width - width of "00:00" - width of "+500mV") / 4096, in panel units; set when the panel is laid
/// out.
extern double EcgPixelUnit;
/// The next drawing of an ECG panel happens even for the second it shows; start 0. Each drawing clears it.
extern Boolean EcgForceRedraw;

/// The second that each panel shows, and the state of a drag that seeks.
struct EcgViewRecord {
    Long LastSecondA = 0;
    Long LastSecondB = 0;
    float DragX = 0;            ///< anchor of the drag, panel units
    Integer DragSecond = 0;     ///< second at the anchor
    Integer LastSeekSecond = 0; ///< second of the last seek that was recalculated
    Integer SeekRow = 0;        ///< 0 at the bottom of the panel to 2 at its top
    double SeekStep = 1;        ///< seconds per drag unit: 1, 5 or 30
    double SeekSensitivity = 0; ///< drag units across the panel
};
extern EcgViewRecord EcgViewState;

/// Draws the four seconds that end with `second` on `target`: the panel itself, its twin, or any other
/// surface with the same operations. A second below 2 counts as 2. Nothing happens for the second drawn last
/// unless `EcgForceRedraw` is set. Sets `labPTime`.
void DrawEcgA(Surface& target, Long second);
void DrawEcgB(Surface& target, Long second);

/// Draws both channels even if they show that second already.
void RedrawEcg(Surface& targetA, Surface& targetB, Long second);

/// Lays the panels out for their present size and gives them their background; with `redraw` draws both.
void OpenEcgPanel(bool redraw);

} // namespace pulselark
