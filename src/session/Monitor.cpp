#include "session/Monitor.h"

#include "platform/Platform.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"

#include <algorithm>

namespace pulselark {

Integer DeviceHandle = 0;

namespace {

constexpr double LowestRate = 10;
constexpr double HighestRate = 10000;

EcgMonitor* Chosen() {
    return ThePlatform().EcgMonitors.Find(MonitorName);
}

EcgMonitor* OpenOne() {
    return DeviceHandle > 0 ? Chosen() : nullptr;
}

void TellNotReady(EcgMonitor* monitor) {
    if (monitor == nullptr) {
        ShowStatus(LanguageText(TextNoMonitorChosen));
        return;
    }
    const std::string why = monitor->Error_Msg();
    ShowStatus(LanguageText(TextMonitorDoesNotStart) + MonitorName + (why.empty() ? "" : ": " + why));
}

} // namespace

void OpenMonitor() {
    CloseMonitor();
    EcgMonitor* monitor = Chosen();
    if (monitor != nullptr)
        DeviceHandle = monitor->Init();
    DeviceReady = ToBoolean(DeviceHandle > 0);
    if (DeviceReady == Off) {
        DeviceHandle = 0;
        TellNotReady(monitor);
    }
}

void CloseMonitor() {
    if (EcgMonitor* monitor = OpenOne())
        monitor->CloseC2(DeviceHandle);
    DeviceHandle = 0;
}

void ReopenMonitor() {
    CloseMonitor();
    if (EcgMonitor* monitor = Chosen())
        DeviceHandle = std::max<Integer>(monitor->Init(), 0);
}

Integer MonitorChannels() {
    EcgMonitor* monitor = OpenOne();
    return monitor != nullptr ? monitor->Tot_Channels() : Integer{0};
}

double MonitorRate(Integer channel) {
    EcgMonitor* monitor = OpenOne();
    const double rate = monitor != nullptr ? monitor->Sig_Rate(channel) : 0;
    return rate >= LowestRate && rate <= HighestRate ? rate : double{SamplesPerSecond};
}

bool ReadMonitor(Integer channel, std::vector<float>& samples) {
    EcgMonitor* monitor = OpenOne();
    return monitor != nullptr && monitor->Read_Buff(channel, samples);
}

std::string MonitorText() {
    EcgMonitor* monitor = Chosen();
    return monitor != nullptr ? monitor->Error_Msg() : std::string();
}

} // namespace pulselark
