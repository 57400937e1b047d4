#pragma once

#include "platform/Clock.h"
#include "platform/LiveRecord.h"
#include "platform/MonitorWords.h"
#include "platform/monitors/PanelMonitor.h"

#include <array>
#include <cstdint>

namespace pulselark {

/// "Replay file": a recording, fed on the clock of the program as if it were live. At its end the connection
/// is lost; opened anew, it starts from its beginning. Option: `file`.
class FileMonitor final : public PanelMonitor {
public:
    FileMonitor(Clock& clock, MonitorWords words, LiveRecordReader reader);

    MonitorOptions& Options() { return options_; }

    Integer Init() override;
    std::string Error_Msg() override;
    Integer Tot_Channels() override;
    double Sig_Rate(Integer channel) override;
    bool Read_Buff(Integer channel, std::vector<float>& samples) override;
    bool ByProgramClock() const override { return true; }
    void CloseC2(Integer handle) override;

private:
    bool AtEnd() const;
    std::size_t SamplesDue() const;

    Clock& clock_;
    LiveRecordReader reader_;
    MonitorWords words_;
    MonitorOptions options_;
    LiveRecord record_;
    std::array<std::size_t, 2> position_{};
    std::int64_t start_ = 0; // reading of the clock
    std::string problem_;
    bool open_ = false;
};

} // namespace pulselark
