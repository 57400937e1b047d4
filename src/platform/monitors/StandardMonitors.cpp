#include "platform/monitors/StandardMonitors.h"

#include "platform/monitors/FileMonitor.h"
#include "platform/monitors/SimulatedMonitor.h"

namespace pulselark {

void AddStandardMonitors(SystemMonitors& monitors, const MonitorSurroundings& surroundings) {
    auto simulated = std::make_shared<SimulatedMonitor>(surroundings.Clock, surroundings.Words);
    monitors.Add("Simulated ECG", simulated, &simulated->Options());
    auto file =
        std::make_shared<FileMonitor>(surroundings.Clock, surroundings.Words, surroundings.ReadRecord);
    monitors.Add("Replay file", file, &file->Options());
}

} // namespace pulselark
