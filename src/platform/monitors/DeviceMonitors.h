#pragma once

#include "platform/monitors/StandardMonitors.h"

namespace pulselark {

/// Adds the monitors on a port or a radio, which the toolkit reaches: "Serial ECG" and "Heart strap". The
/// program needs the toolkit's application object; an event loop only for the strap.
void AddDeviceMonitors(SystemMonitors& monitors, const MonitorSurroundings& surroundings);

} // namespace pulselark
