#include "platform/monitors/VilistusMonitor.h"

#include "platform/ProgramFolder.h"

#include <array>
#include <utility>

namespace pulselark {

namespace {

constexpr std::int64_t LostAfter = 1500; // ms without a sample
constexpr Long BaudRateCode = 9;
constexpr Long PacketLength = 14;
constexpr Long ScanWaitTime = 200;
constexpr double Rate = 128;
constexpr Long StateCount = 7;

} // namespace

VilistusMonitor::VilistusMonitor(Clock& clock, MonitorWords words, Integer& serialPort,
                                 void (*portRefused)(Long), std::string library)
    : clock_(clock), words_(words), serialPort_(serialPort), portRefused_(portRefused),
      name_(std::move(library)) {}

bool VilistusMonitor::OpenLibrary() {
    if (ready_)
        return true;
    if (!library_.Open(name_)) {
        problem_ = words_(MonitorWord::NoLibrary) + name_;
        return false;
    }
    ready_ = library_.Find("SetDebugMode", driver_.SetDebugMode) &&
             library_.Find("SetDSUBaudRate", driver_.SetDSUBaudRate) &&
             library_.Find("SetDSUPacketLength", driver_.SetDSUPacketLength) &&
             library_.Find("SetComPorts", driver_.SetComPorts) &&
             library_.Find("SetScanWaitTime", driver_.SetScanWaitTime) &&
             library_.Find("InitialiseDSU", driver_.InitialiseDSU) &&
             library_.Find("ActiveComPort", driver_.ActiveComPort) &&
             library_.Find("TerminateDSU", driver_.TerminateDSU);
    library_.Find("GetEpoch", driver_.GetEpoch);
    library_.Find("GetSystemStatus", driver_.GetSystemStatus);
    library_.Find("ReportVersion", driver_.ReportVersion);
    problem_ = ready_ ? "" : words_(MonitorWord::LibraryTooSmall) + name_;
    return ready_;
}

void VilistusMonitor::PrepareVilistus() {
    driver_.SetDebugMode(&dsuNumber_, 0, (ProgramFolder() + "/Vilistus_debug.txt").c_str());
    driver_.SetDSUBaudRate(&dsuNumber_, BaudRateCode);
    driver_.SetDSUPacketLength(&dsuNumber_, PacketLength);
    const Long code = driver_.SetComPorts(&dsuNumber_, 1, 100, serialPort_);
    if (code < 0) {
        portRefused_(code);
        driver_.SetDebugMode(&dsuNumber_, 0, "");
        return;
    }
    driver_.SetScanWaitTime(&dsuNumber_, ScanWaitTime);
}

void VilistusMonitor::StopVilistus() {
    driver_.SetDebugMode(&dsuNumber_, 0, "");
    serialPort_ = static_cast<Integer>(driver_.ActiveComPort(&dsuNumber_));
    // The blank is part of the name that the driver is given.
    driver_.TerminateDSU(1, 0, (ProgramFolder() + " /S12345.SES").c_str());
}

Integer VilistusMonitor::Init() {
    if (!OpenLibrary())
        return 0;
    PrepareVilistus();
    driver_.InitialiseDSU(&dsuNumber_);
    open_ = true;
    lastSample_ = clock_.Milliseconds();
    return 1;
}

std::string VilistusMonitor::Error_Msg() {
    if (!OpenLibrary())
        return problem_;
    if (!open_ || driver_.GetSystemStatus == nullptr)
        return {};
    const Long state = driver_.GetSystemStatus(&dsuNumber_);
    return state <= 0 || state >= StateCount ? std::string() : StateInWords(state);
}

std::string VilistusMonitor::Status() {
    const bool well =
        open_ && driver_.GetSystemStatus != nullptr && driver_.GetSystemStatus(&dsuNumber_) == 0;
    return well ? StateInWords(0) : std::string();
}

std::string VilistusMonitor::StateInWords(Long state) {
    const auto word = static_cast<MonitorWord>(static_cast<int>(MonitorWord::StateOk) + state);
    if (driver_.ReportVersion == nullptr)
        return words_(word);
    return words_(word) + " (" + words_(MonitorWord::Version) +
           std::to_string(driver_.ReportVersion(&dsuNumber_)) + ")";
}

Integer VilistusMonitor::Tot_Channels() {
    return 2;
}

double VilistusMonitor::Sig_Rate(Integer /*channel*/) {
    return Rate;
}

bool VilistusMonitor::Read_Buff(Integer channel, std::vector<float>& samples) {
    constexpr Long Room = 1024;
    constexpr int MostRounds = 64; // a driver that never ends must not hold the program
    if (!open_ || driver_.GetEpoch == nullptr)
        return false;
    std::array<float, Room> read{};
    Long count = Room;
    for (int round = 0; round < MostRounds && count == Room; ++round) {
        count = driver_.GetEpoch(&dsuNumber_, channel, read.data(), Room);
        if (count < 0 || count > Room)
            return false;
        samples.insert(samples.end(), read.begin(), read.begin() + count);
        if (count > 0)
            lastSample_ = clock_.Milliseconds();
    }
    return clock_.Milliseconds() - lastSample_ < LostAfter;
}

void VilistusMonitor::CloseC2(Integer /*handle*/) {
    if (std::exchange(open_, false))
        StopVilistus();
}

} // namespace pulselark
