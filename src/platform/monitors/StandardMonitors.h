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
};

/// Adds the monitors that need no toolkit: "Simulated ECG" and "Replay file".
void AddStandardMonitors(SystemMonitors& monitors, const MonitorSurroundings& surroundings);

} // namespace pulselark
