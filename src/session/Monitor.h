#pragma once

#include "base/Numbers.h"

#include <string>
#include <vector>

/// The ECG monitor of the recording: the one that `MonitorName` chooses, opened at its start, read by every
/// acquisition tick, closed a second after its end.
namespace pulselark {

extern Integer DeviceHandle; ///< of the open monitor; 0 for none; start 0

/// Opens the chosen monitor and sets `DeviceReady`. A monitor that is still open is closed first. If there is
/// none of that name, or it does not open, the status line says so and nothing else happens.
void OpenMonitor();

/// Closes what is open.
void CloseMonitor();

/// Closes the monitor and opens it again; a failure leaves it closed, for the next try.
void ReopenMonitor();

/// Channels of the open monitor, 0 if there is none.
Integer MonitorChannels();

/// Samples a second of channel 1 or 2; 128 if the monitor gives no rate that can be worked with.
double MonitorRate(Integer channel);

/// Appends what has arrived on a channel, panel units, NaN for a lost sample. False while there is no
/// connection.
bool ReadMonitor(Integer channel, std::vector<float>& samples);

/// The heart rate by the open monitor's own reckoning, beats a minute; 0 if it has none.
double MonitorHeartRate();

/// What the monitor says of itself, or empty.
std::string MonitorText();

/// How the monitor is that gives samples, in its own words; empty if it does not say.
std::string MonitorStatus();

} // namespace pulselark
