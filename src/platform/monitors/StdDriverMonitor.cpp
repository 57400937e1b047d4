#include "platform/monitors/StdDriverMonitor.h"

#include <array>
#include <utility>

namespace pulselark {

namespace {

constexpr std::int64_t LostAfter = 1500; // ms without a sample

std::string TextOf(const char* text) {
    return text != nullptr ? text : "";
}

} // namespace

StdDriverMonitor::StdDriverMonitor(Clock& clock, MonitorWords words, std::string library)
    : clock_(clock), words_(words), name_(std::move(library)) {}

bool StdDriverMonitor::Prepare() {
    if (ready_)
        return true;
    if (!library_.Open(name_)) {
        problem_ = words_(MonitorWord::NoLibrary) + name_;
        return false;
    }
    ready_ = library_.Find("Init", driver_.Init) && library_.Find("Error_Msg", driver_.Error_Msg) &&
             library_.Find("Tot_Channels", driver_.Tot_Channels) &&
             library_.Find("Sig_Name", driver_.Sig_Name) && library_.Find("Max_Value", driver_.Max_Value) &&
             library_.Find("Min_Value", driver_.Min_Value) && library_.Find("Sig_Rate", driver_.Sig_Rate) &&
             library_.Find("Read_Buff", driver_.Read_Buff) && library_.Find("CloseC2", driver_.CloseC2);
    problem_ = ready_ ? "" : words_(MonitorWord::LibraryTooSmall) + name_;
    return ready_;
}

Integer StdDriverMonitor::Init() {
    if (!Prepare())
        return 0;
    const Integer handle = driver_.Init();
    open_ = handle > 0;
    refused_ = !open_;
    lastSample_ = clock_.Milliseconds();
    return handle;
}

std::string StdDriverMonitor::Error_Msg() {
    if (!Prepare())
        return problem_;
    const std::string said = TextOf(driver_.Error_Msg());
    return said.empty() && refused_ ? words_(MonitorWord::DriverRefused) : said;
}

Integer StdDriverMonitor::Tot_Channels() {
    return open_ ? driver_.Tot_Channels() : Integer{0};
}

std::string StdDriverMonitor::Sig_Name(Integer channel) {
    return open_ ? TextOf(driver_.Sig_Name(channel)) : std::string();
}

double StdDriverMonitor::Sig_Rate(Integer channel) {
    return open_ ? driver_.Sig_Rate(channel) : 0;
}

bool StdDriverMonitor::Read_Buff(Integer channel, std::vector<float>& samples) {
    constexpr int Room = 1024;
    constexpr int MostRounds = 64; // a driver that never ends must not hold the program
    if (!open_)
        return false;
    const double most = driver_.Max_Value(channel);
    const double least = driver_.Min_Value(channel);
    const double factor = most > least ? 2 * PanelRange / (most - least) : 1;
    const double middle = most > least ? (most + least) / 2 : 0;
    std::array<float, Room> read{};
    int count = Room;
    for (int round = 0; round < MostRounds && count == Room; ++round) {
        count = driver_.Read_Buff(channel, read.data(), Room);
        if (count < 0 || count > Room)
            return false;
        for (int i = 0; i < count; ++i)
            samples.push_back(static_cast<float>(
                (static_cast<double>(read[static_cast<std::size_t>(i)]) - middle) * factor));
        if (count > 0)
            lastSample_ = clock_.Milliseconds();
    }
    return clock_.Milliseconds() - lastSample_ < LostAfter;
}

void StdDriverMonitor::CloseC2(Integer handle) {
    if (std::exchange(open_, false))
        driver_.CloseC2(handle);
}

} // namespace pulselark
