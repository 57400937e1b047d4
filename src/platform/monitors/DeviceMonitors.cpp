#include "platform/monitors/DeviceMonitors.h"

#include "platform/monitors/QtSerialPort.h"
#include "platform/monitors/QtStrapLink.h"
#include "platform/monitors/SerialMonitor.h"
#include "platform/monitors/StrapMonitor.h"

namespace pulselark {

void AddDeviceMonitors(SystemMonitors& monitors, const MonitorSurroundings& surroundings) {
    auto serial = std::make_shared<SerialMonitor>(surroundings.Clock, surroundings.Words,
                                                  std::make_unique<QtSerialPort>());
    monitors.Add("Serial ECG", serial, &serial->Options(),
                 [monitor = serial.get()](const std::string& /*key*/) { return monitor->Ports(); });
    auto strap = std::make_shared<StrapMonitor>(surroundings.Clock, surroundings.Words,
                                                std::make_unique<QtStrapLink>());
    monitors.Add("Heart strap", strap, &strap->Options(),
                 [monitor = strap.get()](const std::string& /*key*/) { return monitor->Straps(); });
}

} // namespace pulselark
