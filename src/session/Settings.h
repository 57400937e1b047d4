#pragma once

#include "base/Numbers.h"

#include <array>
#include <string>

/// The user's settings that no other module owns. What an analysis or a panel owns stands in its own header
/// (SpectrumGain, HistoryStyle, SolidGraphs, ...), what belongs to the session in MainBuffers.h.
namespace pulselark {

// Start and window.
extern Boolean ShowAboutAtStart;   ///< the splash shows at the start; start -1
extern Boolean AutoLoadPrevConfig; ///< the layout of the last run is loaded at the start; start -1
extern Boolean AutoScaleAll;       ///< panels keep their proportions of the main window; start -1
extern Boolean ShowBackground;     ///< the picture behind the panels shows; start -1
extern Boolean LockPanels;         ///< panels are neither moved nor sized; start 0
extern Boolean SnapPanels;         ///< panels snap to a grid of 10 pixels; start 0
extern Boolean ShortcutDone;       ///< the desktop entry has been made; start 0

// Coherence panel: lines at the peak's period times and divided by the golden mean and by two.
extern Boolean ShowGoldenRatio; ///< start -1
extern Boolean ShowOctaveRatio; ///< start -1
extern Boolean SolidFillGraph;  ///< the band between each pair is filled; start 0
extern Boolean OctaveInFront;   ///< the octave's pair is drawn last; start 0

// Recording and analysis.
extern Boolean AutoEndSession;    ///< a recording ends by itself after 4.5 minutes; start -1
extern Boolean SpectrumPerHz;     ///< "ms^2 / Hz"; start 0
extern Integer MovingAverageKnob; ///< knob of the history's averaging, 0 to 1000; start 500
extern Integer SerialPort;        ///< port of the monitor; start 1

// Quick scan page.
extern Boolean QsShowPie;          ///< histogram; start -1
extern Boolean QsShowBands;        ///< statistics; start -1
extern Boolean QsShowReference;    ///< reference; start -1
extern Boolean QsShowBpm;          ///< average rate; start -1
extern Integer QsSmoothingChannel; ///< half-width of the spectrum's smoothing in bins, 0 to 16; start 4

// Training mode.
extern double BreathingRate;    ///< breaths per minute; start 7.5
extern double BreathingBalance; ///< length of the out-breath as a multiple of the in-breath, 1 to 10; start 1
extern Integer DynamicIndexInterval; ///< seconds, 4 to 61; start 16
extern Boolean AutoStartBreathing;   ///< start 0
extern Boolean AutoPlayMusic;        ///< start 0
extern Integer AdjustVolume;         ///< 0 to 100; start 50
extern Boolean AlwaysFirstSong;      ///< start 0
extern Boolean AutoRepeat;           ///< start 0
extern std::array<std::string, 6> PlayList;
extern Boolean TrainingPanelOpen; ///< start 0
extern Integer PanelBackground;   ///< start 0

/// Puts every setting of this header to its start value.
void ResetSettings();

} // namespace pulselark
