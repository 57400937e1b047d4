#pragma once

#include "platform/Clock.h"
#include "platform/LiveRecord.h"
#include "platform/MonitorWords.h"
#include "platform/monitors/SystemMonitors.h"

namespace pulselark {

/// What the monitors need of the program around them.
struct MonitorSurroundings {
    class Clock& Clock;
    MonitorWords Words;
    LiveRecordReader ReadRecord;
    Integer& SerialPort;           ///< the setting of the user, which a driver may change
    void (*TellPortRefused)(Long); ///< tells the user of a driver's failure to set that port
};

/// Adds the monitors that need no toolkit: the families with a driver library of their own ("C2" and "C2PP",
/// which are one, and "Vilistus"), "Simulated ECG" and "Replay file".
void AddStandardMonitors(SystemMonitors& monitors, const MonitorSurroundings& surroundings);

} // namespace pulselark
