#include "platform/monitors/StrapMonitor.h"

#include <utility>

namespace pulselark {

namespace {

// In milliseconds. A packet comes every 562 ms.
constexpr std::int64_t LostAfter = 1800;
constexpr std::int64_t HeartRateHolds = 5000;

} // namespace

StrapMonitor::StrapMonitor(Clock& clock, MonitorWords words, std::unique_ptr<StrapLink> link)
    : clock_(clock), words_(words), options_({{"address", OptionKind::Device, "", 0, 0, {}}}),
      link_(std::move(link)) {}

Integer StrapMonitor::Init() {
    CloseC2(0);
    const std::string chosen = options_.Text("address");
    link_->Seek(chosen.substr(0, chosen.find(' ')));
    radioOff_ = link_->Now() == StrapLink::State::NoRadio;
    if (radioOff_) {
        link_->Leave();
        return 0;
    }
    decoder_.Restart();
    baseline_ = Baseline(StrapDecoder::Rate);
    open_ = true;
    seen_ = false;
    heartRate_ = 0;
    return 1;
}

std::string StrapMonitor::Error_Msg() {
    if (radioOff_ || (open_ && link_->Now() == StrapLink::State::NoRadio))
        return words_(MonitorWord::NoBluetooth);
    if (!open_ || Connected())
        return {};
    if (link_->Now() == StrapLink::State::WithoutEcg)
        return words_(MonitorWord::StrapWithoutEcg);
    return words_(seen_ ? MonitorWord::Lost : MonitorWord::StrapSought);
}

Integer StrapMonitor::Tot_Channels() {
    return 1;
}

double StrapMonitor::Sig_Rate(Integer /*channel*/) {
    return StrapDecoder::Rate;
}

bool StrapMonitor::Connected() const {
    return seen_ && clock_.Milliseconds() - lastPacket_ < LostAfter;
}

bool StrapMonitor::Read_Buff(Integer channel, std::vector<float>& samples) {
    if (!open_ || channel != 1)
        return false;
    if (!Connected())
        decoder_.Restart(); // how long the loss was, the reader's clock knows
    std::vector<float> millivolts;
    for (const StrapLink::Bytes& bytes : link_->TakeEcg()) {
        if (!decoder_.Take(bytes, millivolts))
            continue;
        seen_ = true;
        lastPacket_ = clock_.Milliseconds();
    }
    for (const float sample : millivolts)
        samples.push_back(baseline_.Without(static_cast<float>(sample * UnitsPerMillivolt)));
    for (const StrapLink::Bytes& bytes : link_->TakeHeartRates()) {
        if (const auto rate = ReadHeartRate(bytes)) {
            heartRate_ = rate->BeatsPerMinute;
            lastHeartRate_ = clock_.Milliseconds();
        }
    }
    return Connected();
}

double StrapMonitor::OwnHeartRate() {
    return open_ && clock_.Milliseconds() - lastHeartRate_ < HeartRateHolds ? heartRate_ : 0;
}

void StrapMonitor::CloseC2(Integer /*handle*/) {
    if (std::exchange(open_, false))
        link_->Leave();
}

} // namespace pulselark
