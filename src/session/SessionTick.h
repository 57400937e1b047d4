#pragma once

#include "base/Numbers.h"

/// One second of the session. The order is the design of the system: the transform buffers are shared, and
/// each step reads what the one before it wrote.
namespace pulselark {

/// Spectrum A and B, coherence A and B, moving averages, HRV A and B for `AnalysisSecond`.
void RunAnalyses();

/// Spectrum, coherence, history and HRV panels, both channels each, but for those that the selected training
/// has no use for: in training the coherence stands still up to mode 1, the history up to mode
/// `stillHistoryMode` (0 in a tick, 1 in a seek). `beforeHistory` runs between the coherence and the history
/// panels.
void DrawAnalysisPanels(double stillHistoryMode = 0, void (*beforeHistory)() = nullptr);

/// The chord of the second, when sound is wanted: in training by the two coherence modes with
/// `MidiInTraining`, outside training with `MidiInPanels`.
void PlayChordIfWanted();

/// The second `SessionTick`, of a replay or of a recording: start notice, analyses, panels or (with
/// `AppLinkOnly`) the link, training, chord. Without `feedback` there is neither training nor chord: the
/// second holds nothing that they could follow. The caller has made sure that the session has that second.
void RunSecond(bool feedback);

/// A second of a replay; then the cursor moves on.
void RunSessionTick();

/// Called at the end of each second, before the cursor moves on; nobody by default.
extern void (*AfterSecond)();

/// Runs the start notice `labBFStart`: a countdown from second 13 on, in the coherence modes of the training.
void ShowStartNotice();

} // namespace pulselark
