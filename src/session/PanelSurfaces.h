#pragma once

#include "platform/Surface.h"

/// The surfaces of the analysis panels. Whoever has a window puts its own here; without one they are
/// `NoSurface()`, and drawing costs nothing.
namespace pulselark {

extern Surface* picIA;  ///< ECG input, channel A
extern Surface* picIB;  ///< ECG input, channel B
extern Surface* picIAP; ///< its twin, which keeps the picture of the replay
extern Surface* picIBP;
extern Surface* picSA; ///< spectrum
extern Surface* picSB;
extern Surface* picGCA; ///< coherence
extern Surface* picGCB;
extern Surface* picHRVA; ///< heart rate variability
extern Surface* picHRVB;
extern Surface* picHisA; ///< history
extern Surface* picHisB;

extern Surface* picHRVPowerA; ///< bars of the two band powers, in front of the HRV panels
extern Surface* picHRVPowerB;

extern Surface* picQS;    ///< the quick scan's page
extern Surface* picGGZ;   ///< training view: bars of the histograms and of the scores
extern Surface* picSD;    ///< its reference bell
extern Surface* picBWave; ///< breathing wave of the training's settings
extern Surface* picGame;  ///< chart of the games' window

/// Takes all surfaces away again.
void ResetPanelSurfaces();

} // namespace pulselark
