#include "session/Monitor.h"

#include "analysis/Resampler.h"
#include "platform/Platform.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace pulselark {

Integer DeviceHandle = 0;

namespace {

// Beyond it, 2000 V, no driver means what it says.
constexpr float LargestSample = 1e9F;

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
    return Resampler::CanTake(rate) ? rate : double{SamplesPerSecond};
}

bool ReadMonitor(Integer channel, std::vector<float>& samples) {
    EcgMonitor* monitor = OpenOne();
    const auto before = static_cast<std::ptrdiff_t>(samples.size());
    const bool connected = monitor != nullptr && monitor->Read_Buff(channel, samples);
    std::replace_if(
        samples.begin() + before, samples.end(),
        [](float sample) { return !(std::abs(sample) <= LargestSample); },
        std::numeric_limits<float>::quiet_NaN());
    return connected;
}

double MonitorHeartRate() {
    EcgMonitor* monitor = OpenOne();
    return monitor != nullptr ? monitor->OwnHeartRate() : 0;
}

std::string MonitorText() {
    EcgMonitor* monitor = Chosen();
    return monitor != nullptr ? monitor->Error_Msg() : std::string();
}

std::string MonitorStatus() {
    EcgMonitor* monitor = OpenOne();
    return monitor != nullptr ? monitor->Status() : std::string();
}

} // namespace pulselark
