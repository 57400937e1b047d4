#pragma once

#include "platform/Clock.h"
#include "platform/MonitorWords.h"
#include "platform/monitors/Baseline.h"
#include "platform/monitors/PanelMonitor.h"
#include "platform/monitors/StrapDecoder.h"
#include "platform/monitors/StrapLink.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace pulselark {

/// "Heart strap": a chest strap that gives its raw ECG over Bluetooth LE, 130 samples a second, one channel.
/// Option: `address`, that of the strap; what follows a blank is its name and does not count; empty takes the
/// first strap heard of. The resting level is taken out of the signal.
class StrapMonitor final : public PanelMonitor {
public:
    StrapMonitor(Clock& clock, MonitorWords words, std::unique_ptr<StrapLink> link);

    MonitorOptions& Options() { return options_; }
    std::vector<std::string> Straps() { return link_->Straps(); }

    /// Fails without a radio; a strap is sought from then on.
    Integer Init() override;
    std::string Error_Msg() override;
    Integer Tot_Channels() override;
    double Sig_Rate(Integer channel) override;
    bool Read_Buff(Integer channel, std::vector<float>& samples) override;
    double OwnHeartRate() override;
    void CloseC2(Integer handle) override;

private:
    bool Connected() const;

    Clock& clock_;
    MonitorWords words_;
    MonitorOptions options_;
    std::unique_ptr<StrapLink> link_;
    StrapDecoder decoder_;
    Baseline baseline_{StrapDecoder::Rate};
    bool open_ = false;
    bool radioOff_ = false;
    bool seen_ = false; // ECG since the monitor was opened
    double heartRate_ = 0;
    std::int64_t lastPacket_ = 0; // readings of the clock
    std::int64_t lastHeartRate_ = 0;
};

} // namespace pulselark
