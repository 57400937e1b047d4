#pragma once

#include "base/Controls.h"
#include "base/Numbers.h"
#include "platform/MonitorWords.h"

#include <array>
#include <string>

/// Which ECG monitor is used: the chooser `frmSelectDSU` as values. A press stores the choice in
/// `MonitorName` at once; while a recording runs nothing can be chosen.
namespace pulselark {

inline constexpr const char* NotAvailable = "Not available";

/// A monitor that needs no driver library: the name it is stored by, and the text that says what it is.
struct PlainMonitor {
    const char* Name;
    int Text;
};
extern const std::array<PlainMonitor, 4> PlainMonitors;

inline constexpr int DsuCount = 3;
extern std::array<PictureSign, DsuCount> picSelect; ///< the highlight over each picture
extern Label labS;                                  ///< the choice in words
extern Label labOK;                                 ///< shows once there is a real choice
extern Boolean ChooserOpen;                         ///< `frmSelectDSU` is to be shown; start 0

/// Whether a monitor is chosen that a recording could start.
bool MonitorChosen();

void OpenMonitorChooser();
/// After a press that was to start a recording: opens the chooser if none is chosen that could.
void OfferMonitorChooser();
/// Keeps the choice and the monitors' options for the next start, and hides the chooser. A failure is told.
void CloseMonitorChooser();

/// The press of `picDSU` 0, 1 or 2: "C2PP", or "C2" with the Shift key; "Vilistus"; "Not available", a place
/// kept free, of which `labS` speaks for 1500 ms.
void PressDsu(int picture, bool shift);
/// The pointer is over picture 0, 1 or 2, or over none of them with -1.
void PointAtDsu(int picture);
/// The choice of one of `PlainMonitors` by its index.
void PressPlainMonitor(int index);

/// Lets the user choose the file that "Replay file" plays. A cancelled dialog changes nothing.
void ChooseReplayFile();

/// What a monitor says of itself in the language of the user.
std::string TextOfMonitorWord(MonitorWord word);

/// Tells the user that the monitor's serial port could not be set; `code` is what its driver says. While a
/// recording runs it stands on the status line.
void TellPortRefused(Long code);

void InstallChooserTimer();
/// The chooser closed, with nothing lit.
void ResetMonitorChooser();

} // namespace pulselark
