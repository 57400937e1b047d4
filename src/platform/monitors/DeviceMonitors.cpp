#include "platform/monitors/DeviceMonitors.h"

#include "platform/monitors/QtSerialPort.h"
#include "platform/monitors/SerialMonitor.h"

namespace pulselark {

void AddDeviceMonitors(SystemMonitors& monitors, const MonitorSurroundings& surroundings) {
    auto serial = std::make_shared<SerialMonitor>(surroundings.Clock, surroundings.Words,
                                                  std::make_unique<QtSerialPort>());
    monitors.Add("Serial ECG", serial, &serial->Options(),
                 [monitor = serial.get()](const std::string& /*key*/) { return monitor->Ports(); });
}

} // namespace pulselark
