#pragma once

#include "platform/Clock.h"
#include "platform/MonitorWords.h"
#include "platform/monitors/Baseline.h"
#include "platform/monitors/BytePort.h"
#include "platform/monitors/PanelMonitor.h"
#include "platform/monitors/SampleDecoder.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace pulselark {

/// "Serial ECG": a sensor board on a serial port. Options:
///
///     port      name or path; empty takes the first port there is
///     speed     bits a second
///     protocol  `lines` (`LineDecoder`) or `cyton` (`CytonDecoder`)
///     rate      samples a second of `lines`; a Cyton board has 250
///     scale     factor of the samples: panel units of one step with `lines`; with `cyton` the samples are
///               true at 1 for the board's start gain of 24
///     first     with `cyton`, the board's channel that comes first, 1 to 8
///     channels  1 or 2
///
/// The resting level is taken out of the signal (`Baseline`), since it says more of skin and board than of
/// the heart. Two seconds without a good sample are a lost connection: the board is told to start once more,
/// and the port is closed and opened anew until it answers.
class SerialMonitor final : public PanelMonitor {
public:
    SerialMonitor(Clock& clock, MonitorWords words, std::unique_ptr<BytePort> port);
    ~SerialMonitor() override;

    MonitorOptions& Options() { return options_; }
    std::vector<std::string> Ports() { return port_->Ports(); }

    /// Succeeds without a port, too, since it is sought from then on.
    Integer Init() override;
    std::string Error_Msg() override;
    Integer Tot_Channels() override;
    double Sig_Rate(Integer channel) override;
    bool Read_Buff(Integer channel, std::vector<float>& samples) override;
    void CloseC2(Integer handle) override;

private:
    bool IsCyton() const;
    void OpenPort();
    void ClosePort();
    void BeginStream();
    void Seek(std::int64_t now);
    void TakeBytes(std::int64_t now);
    bool Connected() const;

    Clock& clock_;
    MonitorWords words_;
    MonitorOptions options_;
    std::unique_ptr<BytePort> port_;
    std::unique_ptr<SampleDecoder> decoder_;
    std::vector<Baseline> baselines_;
    SampleStore store_;
    // What the options said when the monitor was opened.
    bool cyton_ = false;
    double rate_ = 0;
    double factor_ = 1;
    bool open_ = false;
    bool portOpen_ = false;
    bool seenGood_ = false;       // since the monitor was opened
    std::size_t unexplained_ = 0; // bytes since the last good sample
    std::int64_t lastGood_ = 0;   // readings of the clock
    std::int64_t lastSearch_ = 0; // of the port or of the board
    std::int64_t opened_ = 0;     // the port
};

} // namespace pulselark
