#pragma once

#include "base/Controls.h"

#include <array>
#include <span>

/// The controls of the main window as values: set by the routines of the system, mirrored by the window.
namespace pulselark {

// Labels.
extern Label labStatus;                      ///< message of the status line
extern Label labPTime;                       ///< time of the second on the ECG panels
extern Label labBFStart;                     ///< countdown to the start of biofeedback
extern CaptionLabel labBPMA, labBPMB;        ///< heart rate at the right of the history panels
extern CaptionLabel labLeftS, labRightS;     ///< captions of the spectrum panels, A and B
extern CaptionLabel labLeftGC, labRightGC;   ///< captions of the coherence panels
extern CaptionLabel labLeftHRV, labRightHRV; ///< captions of the HRV panels
/// Captions of the history panels: coherence, a bar between, heart rate.
extern std::array<CaptionLabel, 3> labLeftHis, labRightHis;
extern Label labHRVNoDataA, labHRVNoDataB; ///< how long the HRV panels still wait for data
extern Label labNoSession;                 ///< that no session is open, on the panels
extern Label labDryTesting;                ///< that sessions run without a monitor
extern Label labConnection;                ///< in a recording: that the monitor is not connected
extern Label labChannelMode;               ///< the channel mode in words (the settings' channel action)
extern std::array<Label, 2> labQSMenu;     ///< 0 the quick scan's button, 1 the print button

extern PageControl picSliderAv; ///< the smoothing slider of the quick scan's spectrum
extern PageControl picAvUp;     ///< its buttons: more smoothing
extern PageControl picAvDown;   ///< and less

// The place of the scenery: its still picture, and the cover that stands in for it, with its caption.
extern Picture picGamePassive;
extern Picture picRestoreGame;
extern Label labRestoreGame;

// Buttons of the top bar, by the frame of their strip.
extern PictureButton picStartSmp; ///< record: frame of the colour scheme's row
extern PictureButton picReplay;
extern PictureButton picStop;

// Frames of the strip of replay and stop pictures: three columns (replay, stop, replay while it runs), three
// rows (at rest, not available, under the pointer).
inline constexpr Integer FrameReplayRest = 1;
inline constexpr Integer FrameStopRest = 2;
inline constexpr Integer FrameReplayRunning = 3;
inline constexpr Integer FrameReplayBlocked = 4; ///< during a recording, or with too little to replay
inline constexpr Integer FrameStopBlocked = 5;   ///< the same, and while pressed
inline constexpr Integer FrameReplayHover = 7;
inline constexpr Integer FrameStopHover = 8;
inline constexpr Integer FrameReplayRunningHover = 9;

/// Seconds that a session needs to be replayed.
inline constexpr Long ReplayMinimumSeconds = 5;

// Timers of the session, with their intervals in ms; all start disabled but timLoadingProgress.
extern Timer timReplay;             ///< the session tick: 1000, or 37500 in time-lapse replay
extern Timer timProcess;            ///< the acquisition tick of a live recording
extern Timer timStop;               ///< closes the monitor one second after a recording stopped
extern Timer timLedBlink;           ///< blinks the record button
extern Timer timPause;              ///< restarts the music player after a pause of the session
extern Timer timBlockMovieCommands; ///< ends MovieCommandsBlocked
extern Timer timPlayerCheck;        ///< watches the music player
extern Timer timABMode;             ///< applies the channel mode after the first paint of the panels
extern Timer timLoadingProgress;    ///< animates the "loading" label during start-up
extern Timer timStartUp;            ///< second stage of start-up
extern Timer timShowModules;        ///< third stage of start-up
extern Timer timPrintFirst;         ///< first paint of all panels
extern Timer timQS;                 ///< the countdown of a quick scan
extern Timer timSoundsOff;          ///< ends the sound of a test
extern Timer timFadeOut;            ///< lets the music die away
extern Timer timTellJournal;        ///< tells of a journal that cannot be written

extern Timer timNA; ///< ends the chooser's word that a monitor is not available

// Timers of the partner programs, each of which runs once.
extern Timer timManualCloseScenery; ///< the scenery should be there by now
extern Timer timRestoreGameFirst;   ///< ends the notice that the scenery has to be restored first
extern Timer timStopScrollGame;     ///< stops the scenery a while after its replay
extern Timer timStartScrollDelayed; ///< lets the scenery scroll a while after a file was opened
extern Timer timSendGameSetup;      ///< tells the scenery that has started how things stand
extern Timer timShellExDelayed;     ///< starts the scenery
extern Timer timStartRYB;           ///< tells the breathing tool that has started how things stand

inline constexpr Long ReplayInterval = 1000;
inline constexpr Long TimeLapseInterval = 37500;

extern Label labLoading; ///< "loading" with its dots, during start-up

/// All of the above timers, for whoever runs them.
std::span<Timer* const> SessionTimers();

/// Puts the controls to their start values: buttons that cannot be used, timers at rest. The handlers of the
/// timers stay.
void ResetMainControls();

/// Shows a text on the status line.
void ShowStatus(std::string text);
/// Called after each text that the status line takes; nobody by default.
extern void (*AfterStatus)();

} // namespace pulselark
