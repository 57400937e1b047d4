#include "platform/monitors/StandardMonitors.h"

#include "platform/monitors/FileMonitor.h"
#include "platform/monitors/SimulatedMonitor.h"
#include "platform/monitors/StdDriverMonitor.h"
#include "platform/monitors/VilistusMonitor.h"

namespace pulselark {

void AddStandardMonitors(SystemMonitors& monitors, const MonitorSurroundings& surroundings) {
    const auto c2 = std::make_shared<StdDriverMonitor>(surroundings.Clock, surroundings.Words);
    for (const char* name : {"C2", "C2PP"})
        monitors.Add(name, c2);
    monitors.Add("Vilistus",
                 std::make_shared<VilistusMonitor>(surroundings.Clock, surroundings.Words,
                                                   surroundings.SerialPort, surroundings.TellPortRefused));
    auto simulated = std::make_shared<SimulatedMonitor>(surroundings.Clock, surroundings.Words);
    monitors.Add("Simulated ECG", simulated, &simulated->Options());
    auto file =
        std::make_shared<FileMonitor>(surroundings.Clock, surroundings.Words, surroundings.ReadRecord);
    monitors.Add("Replay file", file, &file->Options());
}

} // namespace pulselark
