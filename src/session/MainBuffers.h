#pragma once

#include "base/Numbers.h"
#include "base/Series.h"

#include <array>
#include <string>
#include <vector>

/// The state of the session: data only, shared by every analysis, panel, file routine and feedback routine.
/// What the analyses compute from it stands in AnalysisBuffers.h.
///
/// Time base: one tick is one second of session time, 128 samples per channel; sample k of second s has the
/// index (s - 1) * 128 + k. All indexes count from 1.
namespace pulselark {

inline constexpr Long SamplesPerSecond = 128;
inline constexpr Long EcgBufferSize = 461000;   ///< samples per channel: 3601 whole seconds and 72 samples
inline constexpr Long SecondsBufferSize = 4096; ///< values of a per-second series

using EcgBuffer = Series<float, EcgBufferSize>;
using SecondsBuffer = Series<float, SecondsBufferSize>;
using SessionFields = std::array<std::string, 21>;

// Samples, panel units (500 is the panel's line "+500mV", 1000 its edge); 0 after a reset. A one-channel
// recording keeps EcgB at 0.
extern EcgBuffer EcgA, EcgB;

// Mean beat-to-beat interval of each second, in seconds (60 / value is beats per minute); 1.0 after a reset.
extern SecondsBuffer IbiA, IbiB;
// Moving averages of the interval series; overwritten from second 1 on, never cleared.
extern SecondsBuffer IbiAvgA, IbiAvgB;
// Coherence of each second as a ratio (0.11083 is 100 %), the value of second s at s + 1; 0 after a reset.
extern SecondsBuffer CoherenceA, CoherenceB;
// Moving averages of the coherence series; overwritten from second 1 on, never cleared.
extern SecondsBuffer CoherenceAvgA, CoherenceAvgB;

/// 0 to 11: the text fields of the session's document (0 title, 3 date, 4 time); 12 to 18 kept in the file
/// and not used; 19 "1" or "0", the chosen person symbol; 20 "1" or "0", the document's lock.
extern SessionFields SessionInfo;
extern SessionFields SessionInfoClipboard; ///< copy and paste of the document between sessions

// Time and counters.
extern Long SessionTick;     ///< second that the next tick will process, the session's cursor; start 1
extern Long SessionSeconds;  ///< length of the session in seconds; start 0
extern Long RecordedSeconds; ///< seconds recorded so far, or the length of a loaded session; start 0
extern Long AnalysisSecond;  ///< second up to which the analyses compute; every caller sets it first; start 0
extern Long WriteIndexA, WriteIndexB; ///< samples written by the recording so far; start 0
extern Long SessionStartTime;         ///< clock at the start of the recording, ms; start 0
extern Long SessionStartTimeSaved;    ///< the same, kept over a pause, ms; start 0
extern Long PausedTotalMs;            ///< time spent paused, ms; start 0
extern Long PauseStartTime;           ///< clock at the last pause, ms; start 0
extern Integer PauseGapSeconds;       ///< length of the gap left by a pause, s; start 5

// Flags.
extern Boolean SessionRunning; ///< a recording is under way; start 0
extern Boolean DeviceReady;    ///< the monitor has been started; start 0
extern Boolean DryTesting;     ///< sessions run without a monitor; start 0
extern Boolean SessionPaused;  ///< the recording was stopped to be continued; start 0
extern Boolean StopRequested;  ///< the user asked the running recording to stop; start 0
extern Boolean LoadingSession; ///< a session file is being read; start 0
extern Boolean SavingSession;  ///< a session or scan file is being written; start 0
extern Boolean Rescanning;     ///< the rescan after a load is running; start 0
extern Boolean SeekBusy;       ///< a seek recalculates; start 0
extern Boolean SessionUnsaved; ///< the data in the buffers differ from any file; start 0
extern Boolean DialogOpen;     ///< a file dialog is up; start 0
extern Boolean TrainingActive; ///< the training mode with scenery is on; start 0
extern double FeedbackMode;    ///< -1 none, 0 pacer, 1 baroreflex, 2 and 3 the coherence modes; start -1
extern std::array<Boolean, 4> ModeRunning; ///< for each feedback mode, whether its session runs; start 0
extern double SessionScore;                ///< score of the session so far, 0 to 100, a whole number; start 0
extern double DynamicIndex;                ///< score of the sliding window, 0 to 100, a whole number; start 0
extern Boolean FeedbackEnabled;            ///< a replay drives feedback as a recording would; start -1
extern Boolean AppLinkOnly;          ///< ticks only talk to the application link, no panel is drawn; start 0
extern Boolean QuickScanResultShown; ///< a finished quick scan is on show; start 0
extern Boolean QuickScanFresh;       ///< the quick scan's page shows channel A; start -1
extern Boolean ChannelBPresent;      ///< channel B is shown and analysed; start 0
extern Integer ChannelMode;          ///< 1 channels A and B, 2 channel A, 3 leaves ChannelBPresent; start 2
extern Boolean LockScreens;          ///< panels stand still while a recording runs; start -1
extern Boolean AllowMultiSessions;   ///< the button that stops a recording only pauses it; start 0
extern Boolean InsertSeparator;      ///< resuming a paused recording leaves a gap of zero samples; start -1
extern Boolean MidiInTraining;       ///< in training the MIDI engine sounds; start 0
extern Boolean MidiInPanels;         ///< outside training the MIDI engine sounds; start 0
extern Boolean TimeLapseReplay;      ///< the replay runs in time lapse; start 0
extern Boolean MovieCommandsBlocked; ///< replay clicks are ignored while the music player restarts; start 0

// Names.
extern std::string SessionName;     ///< file of the session, shown on the status line; start "noname"
extern std::string LastSessionFile; ///< start point of the file dialogs
extern std::string LastOpenFolder;  ///< start point of the open dialog: a folder or the last file chosen
extern std::string LastSaveFolder;  ///< start point of the save dialog: a folder or the last file chosen
extern std::string SessionsFolder;  ///< the Sessions folder of the program's folder
extern std::string MonitorName;     ///< chosen ECG monitor; start "Select your ECG monitor"
/// `MonitorName` while none is chosen.
inline constexpr const char* NoMonitorYet = "Select your ECG monitor";
extern Integer LastFileResult; ///< 999 after a success, else the number of the failure; start 999

inline constexpr Integer FileSuccess = 999;

/// The quick scan's work samples, sized by the quick scan itself.
extern std::vector<float> QsSamples;

/// Clears one session: samples, series, transform buffers, rings, histograms and everything else the analyses
/// keep between seconds, so that a session gives the same numbers whatever was loaded before. Lengths, cursor
/// and flags stay as they are, and so do the moving averages. Runs at program start, before a new recording
/// and before a session is read.
void ResetSessionBuffers();

/// Whether a file routine or a rescan is at work; panels and drags stand still in that time.
inline bool SessionBusy() {
    return LoadingSession != Off || SavingSession != Off || Rescanning != Off;
}

/// Puts every variable of this header to its start value and clears the session. The program's first step,
/// and that of every test.
void SetStartValues();

} // namespace pulselark
