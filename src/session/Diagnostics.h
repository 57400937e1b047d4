#pragma once

#include "base/Numbers.h"

/// What a recording measures about itself, as plain values for whoever shows them. All times are
/// milliseconds; a worst value is that of the recording so far.
namespace pulselark {

/// A time that is measured again and again.
struct MeasuredTime {
    double Last = 0;
    double Worst = 0;
    void Take(double milliseconds);
};

/// The samples of one channel beside the clock.
struct ChannelFigures {
    double SamplesPerSecond = 0; ///< raw samples of the monitor, mean over the recording without its gaps
    double NominalRate = 0;      ///< what the monitor says of itself
    Long LostSamples = 0;        ///< of the 128 a second, those that stand for nothing
    double Corrected = 0;        ///< samples that the monitor's clock has made too few since it was connected
    double ClockDrift = 0;       ///< by which share that clock goes too fast, if that is put right
    double LagMs = 0;            ///< by how much the newest sample is older than the clock
};

struct RecordingDiagnostics {
    MeasuredTime BeatToLamp;    ///< from the time of a beat in the data to the blink of the lamp
    MeasuredTime SecondToChord; ///< from the end of a second in the data to its chord and panels
    MeasuredTime Tick;          ///< work of one acquisition tick, without that of a second
    MeasuredTime Second;        ///< analyses of a second, its panels and its feedback
    MeasuredTime JournalFlush;  ///< of the journal onto the disk, in the background
    ChannelFigures A, B;
    Long Beats = 0;          ///< of channel A
    double MonitorRate = 0;  ///< heart rate by the monitor's own reckoning, beats a minute; 0 if it has none
    Long Losses = 0;         ///< of the connection
    Long JournalSeconds = 0; ///< seconds that the journal has taken
};

extern RecordingDiagnostics Diagnostics;

// How good the signal is, of the last whole second: a figure from 0 to 1, and the light that shows it, 2
// good, 1 doubtful, 0 bad or lost.
extern float SignalQualityA, SignalQualityB; ///< start 0
extern Integer SignalLightA, SignalLightB;   ///< start 0

/// Puts the above to its start values, as a new recording does.
void ResetDiagnostics();

} // namespace pulselark
